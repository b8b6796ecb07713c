#include <gmock/gmock.h>

#include "settings/TagDocument.h"
#include "tests/unit/ReferenceForms.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TagDocumentTest, ReadsTheFirstOfTwoElements) {
    std::wstring value;
    EXPECT_TRUE(TagDocument::FindValue(L"x<A>1</A><A>2</A>", L"A", value));
    EXPECT_EQ(value, L"1");
}

TEST(TagDocumentTest, ReadsAnEmptyElementAsTheEmptyValue) {
    std::wstring value = L"before";
    EXPECT_TRUE(TagDocument::FindValue(L"<A></A>", L"A", value));
    EXPECT_EQ(value, L"");
}

TEST(TagDocumentTest, LeavesTheValueAloneWhenThereIsNoElement) {
    std::wstring value = L"before";
    EXPECT_FALSE(TagDocument::FindValue(L"<B>1</B>", L"A", value));
    EXPECT_FALSE(TagDocument::FindValue(L"<A>1", L"A", value));
    EXPECT_FALSE(TagDocument::FindValue(L"1</A>", L"A", value));
    EXPECT_FALSE(TagDocument::FindValue(L"", L"A", value));
    EXPECT_EQ(value, L"before");
}

TEST(TagDocumentTest, ReadsAllTheRestWhenTheCloseTagStandsInFront) {
    std::wstring value;
    EXPECT_TRUE(TagDocument::FindValue(L"</A>x<A>1", L"A", value));
    EXPECT_EQ(value, L"1");
    EXPECT_TRUE(TagDocument::FindValue(L"</A>x<A>1</A>2", L"A", value));
    EXPECT_EQ(value, L"1</A>2");
}

TEST(TagDocumentTest, PassesOverAttributes) {
    std::wstring value;
    EXPECT_TRUE(TagDocument::FindValue(L"<A k=\"v\">1</A>", L"A", value));
    EXPECT_EQ(value, L"1");
    EXPECT_TRUE(TagDocument::FindValue(L"</A><A k=\"v\">1", L"A", value));
    EXPECT_EQ(value, L"1");
}

TEST(TagDocumentTest, ReadsThePlainElementBeforeAnEarlierOneWithAttributes) {
    EXPECT_EQ(TagDocument::ValueOf(L"<A k=\"v\">1</B><A>2</A>", L"A"), L"2");
}

TEST(TagDocumentTest, EndsTheValueAtTheFirstCloseTagOfAll) {
    // The close tag that counts is the first in the document, here that of the element with attributes.
    EXPECT_EQ(TagDocument::ValueOf(L"<A k=\"v\">1</A><A>2</A>", L"A"), L"2</A>");
}

TEST(TagDocumentTest, FindsNoElementWithAttributesThatNeverCloses) {
    std::wstring value = L"before";
    EXPECT_FALSE(TagDocument::FindValue(L"</A><A k", L"A", value));
    EXPECT_FALSE(TagDocument::FindValue(L"<A k>1", L"A", value));
    EXPECT_FALSE(TagDocument::FindValue(L"<A\tk>1</A>", L"A", value));
    EXPECT_EQ(value, L"before");
}

TEST(TagDocumentTest, SearchesInsideOtherElements) {
    EXPECT_EQ(TagDocument::ValueOf(L"<DEVICE><PORT_NAME>P</PORT_NAME></DEVICE>", L"PORT_NAME"), L"P");
}

TEST(TagDocumentTest, ComparesNamesExactly) {
    const std::wstring document = L"<ab>1</ab><AB>2</AB><ABC>3</ABC><XAB>4</XAB>";
    EXPECT_EQ(TagDocument::ValueOf(document, L"AB"), L"2");
    EXPECT_EQ(TagDocument::ValueOf(document, L"Ab"), L"");
    EXPECT_EQ(TagDocument::ValueOf(document, L"B"), L"");
}

TEST(TagDocumentTest, TellsCharactersWithTheSameLowByteApart) {
    const std::wstring document = L"<\u0141>1</\u0141><A>2</A>";
    EXPECT_EQ(TagDocument::ValueOf(document, L"A"), L"2");
    EXPECT_EQ(TagDocument::ValueOf(document, L"\u0141"), L"1");
}

TEST(TagDocumentTest, TakesTheRestOfANameForNoTag) {
    EXPECT_EQ(TagDocument::ValueOf(L"<A>0<<A>1</<A>", L"<A"), L"1");
}

TEST(TagDocumentTest, FindsNamesThatHoldSigns) {
    EXPECT_EQ(TagDocument::ValueOf(L"<a<b>1</a<b>", L"a<b"), L"1");
    EXPECT_EQ(TagDocument::ValueOf(L"<<<<<a>1</<<<a>", L"<<<a"), L"1");
    EXPECT_EQ(TagDocument::ValueOf(L"</A>1<//A>", L"/A"), L"1");
    EXPECT_EQ(TagDocument::ValueOf(L"<>1</>", L""), L"1");
}

TEST(TagDocumentTest, FindsANameOfManyThousandCharacters) {
    const std::wstring name(70'000, L'n');
    const std::wstring document = L"<n>0</n>" + TagDocument::MakeElement(name, L"1");
    EXPECT_EQ(TagDocument::ValueOf(document, name), L"1");
    EXPECT_EQ(TagDocument::ValueOf(document, name + L'n'), L"");
}

// A search that begins anew at every sign takes minutes here.
TEST(TagDocumentTest, MissesALongNameOfSignsInADocumentOfThem) {
    std::wstring name, document;
    while (name.size() < 200'000) name += L"<>";
    while (document.size() < 2'000'000) document += L"<>";
    EXPECT_EQ(TagDocument::ValueOf(document, name + L'x'), L"");
    EXPECT_EQ(TagDocument::ValueOf(document + L"</" + name + L"x>", name + L'x'), L"");
}

TEST(TagDocumentTest, ReadsAValueOfAMegabyte) {
    const std::wstring value(1'000'000, L'v');
    EXPECT_EQ(TagDocument::ValueOf(L"<A>" + value + L"</A>", L"A"), value);
}

TEST(TagDocumentTest, FindsTagsBehindNullCharacters) {
    const std::wstring document(L"\0\0<A>1\0002</A>", 12);
    EXPECT_EQ(TagDocument::ValueOf(document, L"A"), std::wstring(L"1\0002", 3));
}

TEST(TagDocumentTest, RemovesTheFirstElementOnly) {
    std::wstring document = L"x<A>1</A><A>2</A>";
    TagDocument::RemoveElement(document, L"A");
    EXPECT_EQ(document, L"x<A>2</A>");
}

TEST(TagDocumentTest, KeepsAnElementWithAttributesWhenRemoving) {
    std::wstring document = L"<A k=\"v\">1</A>";
    TagDocument::RemoveElement(document, L"A");
    EXPECT_EQ(document, L"<A k=\"v\">1</A>");
}

TEST(TagDocumentTest, RemovesEverythingBehindAnOpenTagThatFollowsTheCloseTag) {
    std::wstring document = L"</A>x<A>1</A>2";
    TagDocument::RemoveElement(document, L"A");
    EXPECT_EQ(document, L"</A>x");
}

TEST(TagDocumentTest, KeepsADocumentWhereOneTagIsMissingWhenRemoving) {
    std::wstring document = L"<A>1<B>";
    TagDocument::RemoveElement(document, L"A");
    TagDocument::RemoveElement(document, L"B");
    EXPECT_EQ(document, L"<A>1<B>");
}

TEST(TagDocumentTest, MovesAnElementToTheEndWhenSettingIt) {
    std::wstring document = L"<A>1</A><B>2</B>";
    TagDocument::SetElement(document, L"A", L"3");
    EXPECT_EQ(document, L"<B>2</B><A>3</A>");
}

TEST(TagDocumentTest, ChangesNothingWhenSettingAnEmptyName) {
    std::wstring document = L"<A>1</A><>2</>";
    TagDocument::SetElement(document, L"", L"3");
    EXPECT_EQ(document, L"<A>1</A><>2</>");
}

TEST(TagDocumentTest, AddsASecondElementBesideOneWithAttributes) {
    std::wstring document = L"<A k=\"v\">1</A>";
    TagDocument::SetElement(document, L"A", L"2");
    EXPECT_EQ(document, L"<A k=\"v\">1</A><A>2</A>");
    EXPECT_EQ(TagDocument::ValueOf(document, L"A"), L"2</A>");
}

TEST(TagDocumentTest, KeepsMarkupInValuesAsItIs) {
    std::wstring document;
    TagDocument::SetElement(document, L"A", L"1 < 2 & 3 > 2 &amp;");
    EXPECT_EQ(TagDocument::ValueOf(document, L"A"), L"1 < 2 & 3 > 2 &amp;");
}

TEST(TagDocumentTest, SetsAnElementFromTextsOfTheDocumentItself) {
    std::wstring document = L"<A>B</A><B>value</B>";
    const std::wstring_view view = document;
    TagDocument::SetElement(document, view.substr(3, 1), view.substr(11, 5));
    EXPECT_EQ(document, L"<A>B</A><B>value</B>");
}

TEST(TagDocumentTest, ListsAllValuesOfAName) {
    EXPECT_THAT(TagDocument::ListValues(L"x<A>1</A><B>3</B><A>2</A>", L"A"), ElementsAre(L"1", L"2"));
    EXPECT_THAT(TagDocument::ListValues(L"<A></A>\n<A>\n</A>", L"A"), ElementsAre(L"", L"\n"));
    EXPECT_THAT(TagDocument::ListValues(L"", L"A"), IsEmpty());
    EXPECT_THAT(TagDocument::ListValues(L"<A>1</A><A>2", L"A"), ElementsAre(L"1"));
}

TEST(TagDocumentTest, ListsTheRestForAValueWhoseCloseTagStandsInFront) {
    EXPECT_THAT(TagDocument::ListValues(L"</A><A>1</A>", L"A"), ElementsAre(L"1</A>", L"1"));
}

TEST(TagDocumentTest, FindsWhatAPlainSearchFinds) {
    TextMaker documents(
        {L"<", L"/", L">", L"a", L"b", L" ", L"<a>", L"</a>", L"<b>", L"</ab>", L"<a ", L"<ab>"}, 7);
    TextMaker names(Letters(L"ab/< "), 8);
    for (int i = 0; i < 30'000; ++i) {
        const auto document = documents.Make(12);
        const auto name = names.Make(3);
        const auto open = document.find(L'<' + name + L'>');
        const auto close = document.find(L"</" + name + L'>');
        std::wstring left = document;
        TagDocument::RemoveElement(left, name);
        const bool isRemoved = open != std::wstring::npos && close != std::wstring::npos;
        const auto end = isRemoved && close > open ? close + name.size() + 3 : document.size();
        EXPECT_EQ(left, isRemoved ? document.substr(0, open) + document.substr(end) : document) << name;
    }
}

}  // namespace
