#include <gmock/gmock.h>

#include "CommonLib/Utf8.h"
#include "settings/TagDocument.h"
#include "tools/PackageCheck/TagFile.h"

using packagecheck::Decoding;
using packagecheck::FoundTag;
using packagecheck::TagFile;
using packagecheck::TagKind;

namespace {

std::vector<std::wstring> NamesTaken(const std::string& text) {
    const TagFile file("a.xml", text, Decoding::Pieces);
    std::vector<std::wstring> names;
    for (const auto& element : TakenElements(file)) names.emplace_back(element.name);
    return names;
}

class TakenElementsTest : public testing::TestWithParam<const char*> {};

// The names are the wizard's own; what could differ is that one of them is found nowhere.
TEST_P(TakenElementsTest, HasAPlaceForEachElementThatTheWizardTakes) {
    EXPECT_EQ(NamesTaken(GetParam()), TagDocument::ListElementNames(FromUtf8(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(Texts, TakenElementsTest,
                         testing::Values("<A>1</A><B>2</B>", "<A>\n<B>1</B>\n</A>", "<A></A><B>1</B>",
                                         "<A><B>1</B></A><B>2</B>", "<A>1\n</A><A>2</A>", "<A>1<A>2</A></A>",
                                         "<A>1</A><A>2</A><A>3</A>", "<A></A></A>",
                                         "<A k=\"v\">1</A><B>2</B>"));

std::vector<std::wstring> ValuesTaken(const std::string& text) {
    const TagFile file("a.xml", text, Decoding::Pieces);
    std::vector<std::wstring> values;
    for (const auto& element : TakenElements(file)) values.emplace_back(element.value);
    return values;
}

TEST(TagFileTest, TakesTheValuesThatTheWizardTakes) {
    // A value has a character at least.
    EXPECT_THAT(ValuesTaken("<A></A></A>"), testing::ElementsAre(L"</A>"));
    // An element within another is a part of that one's value.
    EXPECT_THAT(ValuesTaken("<A><B>1</B></A><B>2</B>"), testing::ElementsAre(L"<B>1</B>", L"2"));
    EXPECT_THAT(ValuesTaken("<A k=\"v\">1</A><A>2</A>"), testing::ElementsAre(L"2"));
    EXPECT_THAT(ValuesTaken("<A>1\n</A><A>2</A>"), testing::ElementsAre(L"2"));
}

TEST(TagFileTest, SaysWhereATakenElementStands) {
    const TagFile file("a.xml", "<S>\n  <A>1</A>\n</S>", Decoding::Pieces);
    const auto taken = TakenElements(file);
    ASSERT_EQ(taken.size(), 1U);
    EXPECT_EQ(taken.front().value, L"1");
    EXPECT_EQ(file.PlaceOf(taken.front().start).position, (packagecheck::Position{.line = 2, .column = 3}));
}

TEST(TagFileTest, HasNoLineForATagThatIsNotThere) {
    const TagFile file("a.xml", "<A>1</A>", Decoding::Pieces);
    EXPECT_EQ(file.PlaceOf(L"B").file, "a.xml");
    EXPECT_EQ(file.PlaceOf(L"B").position.line, 0U);
    EXPECT_EQ(file.PlaceOf(L"A").position.line, 1U);
}

TEST(TagScanTest, TellsTheKindsOfTagsApart) {
    const std::wstring text = L"<?xml v?><!-- c <A>1</A> --><B k=\"v\"><C/></B>< <D>";
    std::vector<std::pair<std::wstring, TagKind>> found;
    for (const FoundTag& tag : packagecheck::ScanTags(text)) found.emplace_back(tag.name, tag.kind);
    EXPECT_THAT(found, testing::ElementsAre(std::pair(L"A", TagKind::Open), std::pair(L"A", TagKind::Close),
                                            std::pair(L"B", TagKind::OpenWithAttributes),
                                            std::pair(L"C", TagKind::Single), std::pair(L"B", TagKind::Close),
                                            std::pair(L"D", TagKind::Open)));
}

TEST(TagScanTest, TakesNothingWithoutANameForATag) {
    EXPECT_THAT(packagecheck::ScanTags(L"<>A>"), testing::IsEmpty());
    EXPECT_THAT(packagecheck::ScanTags(L"<<A>"), testing::SizeIs(1));
    EXPECT_EQ(packagecheck::ScanTags(L"<<A>").at(0).name, L"A");
}

TEST(TagScanTest, KnowsWhatIsInAComment) {
    const std::wstring text = L"<!-- <A> --><B><!-- <C>";
    std::vector<bool> inComment;
    for (const FoundTag& tag : packagecheck::ScanTags(text)) inComment.push_back(tag.isInComment);
    EXPECT_THAT(inComment, testing::ElementsAre(true, false, false));
}

}  // namespace
