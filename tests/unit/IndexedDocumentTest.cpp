#include <gmock/gmock.h>

#include "settings/IndexedDocument.h"
#include "settings/TagDocument.h"
#include "tests/unit/ReferenceForms.h"

namespace {

TEST(IndexedDocumentTest, FindsATagThatARemovalJoined) {
    IndexedDocument document(L"<A<B>1</B>>2</A>");
    EXPECT_EQ(document.ValueOf(L"A"), L"");
    document.RemoveElement(L"B");
    EXPECT_EQ(document.Text(), L"<A>2</A>");
    EXPECT_EQ(document.ValueOf(L"A"), L"2");
}

TEST(IndexedDocumentTest, FindsAttributesThatARemovalJoined) {
    IndexedDocument document(L"<A<B>1</B> k>2</A>");
    EXPECT_FALSE(document.HasValue(L"A"));
    document.RemoveElement(L"B");
    EXPECT_EQ(document.ValueOf(L"A"), L"2");
}

TEST(IndexedDocumentTest, SeesNoValueBetweenTagsWhoseElementsAreGone) {
    IndexedDocument document(L"<A><B>1</B><B>2</B></A>");
    document.RemoveElement(L"B");
    EXPECT_TRUE(document.HasValue(L"A"));
    document.RemoveElement(L"B");
    EXPECT_FALSE(document.HasValue(L"A"));
    EXPECT_EQ(document.Text(), L"<A></A>");
}

TEST(IndexedDocumentTest, FindsWhatWasAppendedBehindARemovedEnd) {
    IndexedDocument document(L"</A>x<A>1 2");
    document.RemoveElement(L"A");
    document.Append(L"<A>3</A>");
    EXPECT_EQ(document.Text(), L"</A>x<A>3</A>");
    EXPECT_EQ(document.ValueOf(L"A"), L"3</A>");
}

TEST(IndexedDocumentTest, FindsANameOfTwoWordsInFrontOfAnAttribute) {
    IndexedDocument document(L"<A j x>0<A kk x>0<A k x>1</A k>");
    EXPECT_EQ(document.ValueOf(L"A k"), L"1");
    EXPECT_EQ(document.ValueOf(L"A"), L"");
    EXPECT_TRUE(document.HasValue(L"A k"));
}

TEST(IndexedDocumentTest, ServesNamesThatHoldSigns) {
    IndexedDocument document(L"<a<b>1</a<b>");
    EXPECT_TRUE(document.HasValue(L"a<b"));
    document.RemoveElement(L"a<b");
    document.Append(L"<B>2</B>");
    EXPECT_EQ(document.Text(), L"<B>2</B>");
}

class GeneratedOperationsTest : public testing::TestWithParam<std::vector<std::wstring>> {};

TEST_P(GeneratedOperationsTest, GiveTheResultOfPlainSearches) {
    TextMaker texts(GetParam(), 22);
    TextMaker names({L"A", L"B", L" ", L"/", L"k"}, 23);
    for (int i = 0; i < 4'000; ++i) {
        std::wstring plain = texts.Make(16);
        IndexedDocument indexed(plain);
        for (int step = 0; step < 8; ++step) {
            const auto name = names.Make(3);
            ASSERT_EQ(indexed.ValueOf(name), TagDocument::ValueOf(plain, name)) << plain << "\nname " << name;
            ASSERT_EQ(indexed.HasValue(name), !TagDocument::ValueOf(plain, name).empty()) << plain;
            const auto element = TagDocument::MakeElement(names.Make(2), texts.Make(2));
            if (step % 3 == 1) plain += element;
            if (step % 3 == 1) indexed.Append(element);
            TagDocument::RemoveElement(plain, name);
            indexed.RemoveElement(name);
            ASSERT_EQ(indexed.Text(), plain) << "name " << name;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Pieces, GeneratedOperationsTest,
                         testing::Values(std::vector<std::wstring>{L"<A>1</A>", L"<B>2</B>", L"<A", L">",
                                                                   L"</A", L"</A>", L"<B>", L"</B>", L"x"},
                                         std::vector<std::wstring>{L"<A>1</A>", L"<A k>", L"<A ", L"k", L" ",
                                                                   L">", L"</A>", L"</A k>", L"<B"},
                                         Letters(L"<>/AB ")));

}  // namespace
