#include <gmock/gmock.h>

#include "settings/TagDocument.h"
#include "tests/unit/ReferenceForms.h"

namespace {

using TagDocument::ListElementNames;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct ListedNames {
    std::wstring document;
    std::vector<std::wstring> names;
};

class ElementNamesTest : public testing::TestWithParam<ListedNames> {};

TEST_P(ElementNamesTest, ListsWhatTheExpressionMatches) {
    EXPECT_EQ(ListElementNames(GetParam().document), GetParam().names);
    EXPECT_EQ(ElementNamesByRegex(GetParam().document), GetParam().names);
}

const ListedNames listedNames[] = {
    {L"", {}},
    {L"<A>1</A><B>2</B>", {L"A", L"B"}},
    {L"<A>1</A><A>2</A>", {L"A", L"A"}},
    {L"<A>\n<B>1</B>\n</A>", {L"B"}},
    {L"<A>\r<B>1</B>\r</A>", {L"B"}},
    {L"<A></A><B>1</B>", {L"B"}},
    {L"<A></A>1</A>", {L"A"}},
    {L"<A><B>1</B></A>", {L"A"}},
    {L"<A><A>1</A></A>", {L"A"}},
    {L"<A k=\"v\">1</A>", {}},
    {L"<A k=\"v\">1</A k=\"v\">", {L"A k=\"v\""}},
    {L"<A>1</B></A>", {L"A"}},
    {L"<A>1</AB></A>", {L"A"}},
    {L"<A>1<B>2</A>3</B>", {L"A"}},
    {L"<A>1", {}},
    {L"1</A>", {}},
    {L"<>1</>", {}},
    {L"><A><B>1</C></A>", {L"A"}},
    {L"<>>1</>>", {L""}},
    {L"<>a>1</>a>", {L""}},
    {L"<a<b>1</a<b>", {L"a<b"}},
    {L"<<a>1</<a>", {L"<a"}},
    {L"<<a>1</a>", {L"a"}},
    {L"</A>1<//A>", {L"/A"}},
    {L"<A>1</A></A>", {L"A"}},
    {L"<A></</A>", {L"A"}},
    {L"<A></A></A>", {L"A"}},
    {L"<A>1\u2028</A>", {}},
    {L"<A>1\u2029</A>", {}},
    {L"<A>1\v\f\u0085</A>", {L"A"}},
    {L"<A>1</ A></A>", {L"A"}},
    {L"\uFEFF<A>1</A>", {L"A"}},
};

INSTANTIATE_TEST_SUITE_P(Documents, ElementNamesTest, testing::ValuesIn(listedNames));

class GeneratedNamesTest : public testing::TestWithParam<std::vector<std::wstring>> {};

TEST_P(GeneratedNamesTest, ListsWhatTheExpressionMatches) {
    TextMaker documents(GetParam(), 20);
    for (int i = 0; i < 4'000; ++i) {
        const auto document = documents.Make(24);
        ASSERT_EQ(ListElementNames(document), ElementNamesByRegex(document)) << document;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Alphabets, GeneratedNamesTest,
    testing::Values(Letters(L"<>/ab\n\r "), Letters(L"<>/a"), Letters(L"<>/a\u2028\u2029"), Letters(L"<>/"),
                    std::vector<std::wstring>{L"<", L"</", L">", L"a", L"b"},
                    std::vector<std::wstring>{L"<a>", L"</a>", L"<ab>", L"</ab>", L"<", L"\n", L"a", L">"},
                    std::vector<std::wstring>{L"<<", L"</", L"a>", L"</<", L"x", L"/a>"}));

TEST(ElementNamesSizeTest, ListsATypicalMegabyte) {
    std::wstring document;
    for (int i = 0; i < 20'000; ++i) {
        document +=
            TagDocument::MakeElement(L"TAG_" + std::to_wstring(i), L"a value of some words") + L"\r\n";
    }
    EXPECT_THAT(ListElementNames(document), SizeIs(20'000));
}

TEST(ElementNamesSizeTest, ListsAMegabyteInOneLine) {
    std::wstring document;
    for (int i = 0; i < 20'000; ++i) {
        document += TagDocument::MakeElement(L"TAG_" + std::to_wstring(i), L"<INNER>a value</INNER>");
    }
    EXPECT_THAT(ListElementNames(document), SizeIs(20'000));
    EXPECT_THAT(ListElementNames(L"<ALL>" + document + L"</ALL>"), ElementsAre(L"ALL"));
    EXPECT_THAT(ListElementNames(L"<ALL>" + document), SizeIs(20'000));
}

TEST(ElementNamesSizeTest, ListsNothingForTagsThatNeverClose) {
    std::wstring document;
    for (int i = 0; i < 100'000; ++i) document += L"<TAG_" + std::to_wstring(i) + L'>';
    EXPECT_THAT(ListElementNames(document), IsEmpty());
    EXPECT_THAT(ListElementNames(document + L"</OTHER>"), IsEmpty());
    EXPECT_THAT(ListElementNames(document + L"x</TAG_0>"), ElementsAre(L"TAG_0"));
}

class RepeatedSignsTest : public testing::TestWithParam<std::wstring> {};

// Each of these costs many minutes where the time grows with the square of the text.
TEST_P(RepeatedSignsTest, ListsNothingForManySigns) {
    std::wstring document;
    while (document.size() < 200'000) document += GetParam();
    EXPECT_THAT(ListElementNames(document), IsEmpty());
    EXPECT_THAT(ListElementNames(document + L"a>"), IsEmpty());
    EXPECT_THAT(ListElementNames(document + L"<a>b</a>\n" + document + L"<a>b</x>"), SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(Signs, RepeatedSignsTest,
                         testing::Values(L"<", L"<a", L"<a ", L"<</", L"</", L"</<"));

TEST(ElementNamesSizeTest, MatchesNamesOfAMillionSigns) {
    const std::wstring name(500'000, L'<');
    const std::wstring element = L'<' + name + L"a>x</" + name + L"a>";
    const auto names = ListElementNames(element);
    ASSERT_THAT(names, SizeIs(1));
    EXPECT_TRUE(names.front() == name + L'a');
    EXPECT_THAT(ListElementNames(L'<' + name + L"a>x</" + name + L"b>"), IsEmpty());
}

}  // namespace
