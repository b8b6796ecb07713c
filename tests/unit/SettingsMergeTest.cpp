#include <gmock/gmock.h>

#include "settings/SettingsMerge.h"
#include "settings/TagDocument.h"
#include "tests/unit/ReferenceForms.h"

namespace {

std::wstring Merged(std::wstring document, std::wstring_view incoming) {
    std::wstring record;
    MergeDocument(document, record, incoming);
    return document;
}

TEST(SettingsMergeTest, ReplacesADefaultByTheFirstAndAddsTheLaterOnes) {
    EXPECT_EQ(Merged(L"<A>1</A>", L"<A>2</A><A>3</A>"), L"<A>2</A><A>3</A>");
}

TEST(SettingsMergeTest, KeepsADefaultThatComesInEmpty) {
    EXPECT_EQ(Merged(L"<A>1</A>", L"<A></A>"), L"<A>1</A>");
}

TEST(SettingsMergeTest, AddsATagThatTheDefaultsLack) {
    EXPECT_EQ(Merged(L"<A>1</A>", L"<B>2</B>"), L"<A>1</A><B>2</B>");
}

TEST(SettingsMergeTest, LeavesAnEmptyDefaultInFront) {
    // Only a default with a value is replaced, and the empty one is still the first that is read.
    const auto document = Merged(L"<A></A>", L"<A>2</A>");
    EXPECT_EQ(document, L"<A></A><A>2</A>");
    EXPECT_EQ(TagDocument::ValueOf(document, L"A"), L"");
}

TEST(SettingsMergeTest, KeepsTheFurtherValuesOfARepeatedDefault) {
    EXPECT_EQ(Merged(L"<A>1</A><A>2</A>", L"<A>3</A>"), L"<A>2</A><A>3</A>");
}

TEST(SettingsMergeTest, IgnoresElementsWithAttributes) {
    EXPECT_EQ(Merged(L"<A>1</A>", L"<A k=\"v\">2</A>"), L"<A>1</A>");
}

TEST(SettingsMergeTest, AddsBesideADefaultWithAttributes) {
    EXPECT_EQ(Merged(L"<A k=\"v\">1</A>", L"<A>2</A>"), L"<A k=\"v\">1</A><A>2</A>");
}

TEST(SettingsMergeTest, SetsTheInnerTagsOfADeviceThatRunsOverLines) {
    const auto document =
        Merged(L"<PORT_NAME>D</PORT_NAME>", L"<DEVICE>\n<PORT_NAME>P</PORT_NAME>\n</DEVICE>\n");
    EXPECT_EQ(document, L"<PORT_NAME>P</PORT_NAME>");
}

TEST(SettingsMergeTest, TakesEveryDeviceOnALineOfItsOwn) {
    const auto document =
        Merged(L"", L"<DEVICE><DRIVER_ID>1</DRIVER_ID></DEVICE>\n<DEVICE><DRIVER_ID>2</DRIVER_ID></DEVICE>");
    EXPECT_THAT(TagDocument::ListValues(document, L"DEVICE"),
                testing::ElementsAre(L"<DRIVER_ID>1</DRIVER_ID>", L"<DRIVER_ID>2</DRIVER_ID>"));
}

TEST(SettingsMergeTest, KeepsTheByteOrderMarkAtTheHead) {
    EXPECT_EQ(Merged(L"\uFEFF<A>1</A>", L"\uFEFF<A>2</A>"), L"\uFEFF<A>2</A>");
}

TEST(SettingsMergeTest, OnlyAddsWhatAnEarlierMergeHasSet) {
    std::wstring document = L"<A>1</A>";
    std::wstring record;
    MergeDocument(document, record, L"<A>2</A>");
    MergeDocument(document, record, L"<A>3</A>");
    EXPECT_EQ(document, L"<A>2</A><A>3</A>");
    EXPECT_EQ(record, L"<A>2</A><A>3</A>");
}

TEST(SettingsMergeTest, ReadsTheFirstTagOfANameEvenInsideADevice) {
    // The search is not aware of nesting, so the inner element of the default is the one that is replaced.
    EXPECT_EQ(Merged(L"<D><A>1</A></D><A>2</A>", L"<A>3</A>"), L"<D></D><A>2</A><A>3</A>");
}

class GeneratedMergeTest : public testing::TestWithParam<std::vector<std::wstring>> {};

TEST_P(GeneratedMergeTest, GivesTheResultOfPlainSearches) {
    TextMaker texts(GetParam(), 21);
    for (int i = 0; i < 2'000; ++i) {
        const auto before = texts.Make(14);
        const auto recordBefore = texts.Make(5);
        const auto incoming = texts.Make(18);
        auto document = before, record = recordBefore, expected = before, expectedRecord = recordBefore;
        MergeDocument(document, record, incoming);
        MergeBySearch(expected, expectedRecord, incoming);
        ASSERT_EQ(document, expected) << "document " << before << "\nincoming " << incoming;
        ASSERT_EQ(record, expectedRecord) << "record " << recordBefore << "\nincoming " << incoming;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Pieces, GeneratedMergeTest,
    testing::Values(std::vector<std::wstring>{L"<A>1</A>", L"<A>2</A>", L"<B>3</B>", L"<A>", L"</A>", L"<B>",
                                              L"</B>", L"\n", L"x"},
                    std::vector<std::wstring>{L"<A>1</A>", L"<A k>2</A>", L"<A ", L"<A k", L">", L"</A>",
                                              L"<A k>3</A k>", L"</A k>", L"<A>"},
                    std::vector<std::wstring>{L"<A>1</A>", L"<B>1</B>", L"<", L"A", L">", L"</", L"/", L"B",
                                              L" ", L"</A>", L"</B>"},
                    std::vector<std::wstring>{L"<A<B>1</A<B>", L"<B>1</B>", L"<A", L"<B>", L"</A", L"</A<B>",
                                              L"<A<B>", L"x"},
                    std::vector<std::wstring>{L"<>>1</>>", L"<>", L"</>", L"<A>1</A>", L"<", L">", L"x",
                                              L"</A>1<//A>"},
                    Letters(L"<>/ab\n ")));

TEST(SettingsMergeSizeTest, MergesManyElements) {
    std::wstring document, incoming;
    for (int i = 0; i < 5'000; ++i) {
        const auto name = L"TAG_" + std::to_wstring(i);
        document += TagDocument::MakeElement(name, L"the value of the defaults") + L'\n';
        incoming += TagDocument::MakeElement(name, L"the value of the user's file") + L'\n';
        incoming +=
            TagDocument::MakeElement(L"DEVICE", L"<DRIVER_ID>" + std::to_wstring(i) + L"</DRIVER_ID>") +
            L'\n';
    }
    std::wstring record;
    MergeDocument(document, record, incoming);
    EXPECT_EQ(TagDocument::ListValues(document, L"DEVICE").size(), 5'000U);
    EXPECT_EQ(document.find(L"defaults"), std::wstring::npos);
    EXPECT_EQ(document.substr(0, 5'001), std::wstring(5'000, L'\n') + L'<');
}

TEST(SettingsMergeSizeTest, MergesElementsThatPartOneTag) {
    // Each removal leaves the same unfinished tag in front of the next element.
    std::wstring incoming;
    for (int i = 0; i < 5'000; ++i) incoming += L"<A<B>1</B>\n";
    std::wstring document = incoming, record;
    MergeDocument(document, record, incoming);
    EXPECT_EQ(TagDocument::ListValues(record, L"B").size(), 5'000U);
}

}  // namespace
