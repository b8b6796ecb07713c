#include <gmock/gmock.h>

#include "settings/KeyedValues.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(KeyedValuesTest, KeepsTheFirstEntryOfAKey) {
    EXPECT_THAT(KeyedValues({L"A:X", L"A:Y", L"B:Z"}, L":"), ElementsAre(Pair(L"A", L"X"), Pair(L"B", L"Z")));
}

TEST(KeyedValuesTest, SplitsAtTheFirstSeparator) {
    EXPECT_THAT(KeyedValues({L"A:X:Y"}, L":"), ElementsAre(Pair(L"A", L"X:Y")));
    EXPECT_THAT(KeyedValues({L"A::X"}, L"::"), ElementsAre(Pair(L"A", L"X")));
}

TEST(KeyedValuesTest, LeavesOutValuesWithoutTheSeparator) {
    EXPECT_THAT(KeyedValues({L"", L"A"}, L":"), IsEmpty());
    EXPECT_THAT(KeyedValues({}, L":"), IsEmpty());
}

TEST(KeyedValuesTest, TakesEmptyKeysAndEmptyEntries) {
    EXPECT_THAT(KeyedValues({L":X", L"A:"}, L":"), ElementsAre(Pair(L"", L"X"), Pair(L"A", L"")));
}

}  // namespace
