#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "settings/FilterDocument.h"

namespace {

using testing::ElementsAre;
using testing::Pair;

TEST(FilterDocumentTest, LetsEverythingPassAnEmptyFilter) {
    EXPECT_TRUE(MatchesFilter(L"", [](auto, auto) { return false; }));
}

TEST(FilterDocumentTest, AsksForEveryNamedValue) {
    std::vector<std::pair<std::wstring, std::wstring>> asked;
    const auto test = [&](std::wstring_view name, std::wstring_view value) {
        asked.emplace_back(name, value);
        return true;
    };
    EXPECT_TRUE(MatchesFilter(L"<ISOPTIONAL>false</ISOPTIONAL><ISSELECTED>true</ISSELECTED>", test));
    EXPECT_THAT(asked, ElementsAre(Pair(L"ISOPTIONAL", L"false"), Pair(L"ISSELECTED", L"true")));
}

TEST(FilterDocumentTest, FailsWhenOneConditionFails) {
    const auto passesOnlyA = [](std::wstring_view name, std::wstring_view) { return name == L"A"; };
    EXPECT_TRUE(MatchesFilter(L"<A>1</A>", passesOnlyA));
    EXPECT_FALSE(MatchesFilter(L"<A>1</A><B>1</B>", passesOnlyA));
    EXPECT_FALSE(MatchesFilter(L"<B>1</B><A>1</A>", passesOnlyA));
}

TEST(FilterDocumentTest, IsNotRestrictedByAnEmptyValue) {
    EXPECT_TRUE(MatchesFilter(L"<A></A>", [](auto, auto) { return false; }));
}

TEST(FilterDocumentTest, ReadsTheFirstValueOfANameThatComesTwice) {
    const auto isOne = [](std::wstring_view, std::wstring_view value) { return value == L"1"; };
    EXPECT_TRUE(MatchesFilter(L"<A>1</A><A>2</A>", isOne));
    EXPECT_FALSE(MatchesFilter(L"<A>2</A><A>1</A>", isOne));
}

}  // namespace
