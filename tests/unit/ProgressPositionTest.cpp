#include <gtest/gtest.h>

#include <limits>

#include "install/ProgressPosition.h"

namespace {

TEST(NextStepTest, NeverReachesTheTotal) {
    EXPECT_EQ(NextStep(0, 3, false), 1);
    EXPECT_EQ(NextStep(1, 3, false), 2);
    EXPECT_EQ(NextStep(2, 3, false), 2);
    EXPECT_EQ(NextStep(0, 1, false), 0);
    EXPECT_EQ(NextStep(0, 0, false), 0);
}

TEST(NextStepTest, NeverReachesZeroOnTheWayBack) {
    EXPECT_EQ(NextStep(3, 5, true), 2);
    EXPECT_EQ(NextStep(2, 5, true), 1);
    EXPECT_EQ(NextStep(1, 5, true), 1);
    EXPECT_EQ(NextStep(0, 5, true), 0);
}

TEST(MoveBarTest, MovesForwardByStepsAndPercent) {
    const auto move = MoveBar(1, 40, 100, 0, 300, false);
    EXPECT_TRUE(move.inRange);
    EXPECT_EQ(move.position, 140);
}

TEST(MoveBarTest, ReachesTheEndWithTheLastPackage) {
    EXPECT_EQ(MoveBar(2, 100, 200, 0, 300, false).position, 300);
}

TEST(MoveBarTest, StaysWhenThePercentageFalls) {
    EXPECT_EQ(MoveBar(0, 80, 0, 0, 100, false).position, 80);
    const auto fallen = MoveBar(0, 40, 80, 0, 100, false);
    EXPECT_TRUE(fallen.inRange);
    EXPECT_EQ(fallen.position, std::nullopt);
    EXPECT_EQ(MoveBar(0, 80, 80, 0, 100, false).position, std::nullopt);
}

TEST(MoveBarTest, StandsAtTheBeginningWithoutAnyProgress) {
    const auto move = MoveBar(0, 0, 0, 0, 100, false);
    EXPECT_TRUE(move.inRange);
    EXPECT_EQ(move.position, std::nullopt);
}

TEST(MoveBarTest, RefusesAPositionOutOfRange) {
    EXPECT_FALSE(MoveBar(0, 101, 0, 0, 100, false).inRange);
    EXPECT_FALSE(MoveBar(0, -1, 0, 0, 100, false).inRange);
    EXPECT_FALSE(MoveBar(1, std::numeric_limits<int>::max(), 0, 0, 100, false).inRange);
    EXPECT_FALSE(MoveBar(std::numeric_limits<int>::max(), 100, 0, 0, 100, true).inRange);
}

TEST(MoveBarTest, MovesBackDuringARollBack) {
    EXPECT_EQ(MoveBar(2, 30, 250, 0, 300, true).position, 170);
    const auto after = MoveBar(2, 30, 170, 0, 300, true);
    EXPECT_TRUE(after.inRange);
    EXPECT_EQ(after.position, std::nullopt);
}

TEST(MoveBarTest, TestsTheForwardPositionOnTheWayBack) {
    // 2 steps and 100 percent lie outside the bar, though 100 percent back does not.
    EXPECT_FALSE(MoveBar(2, 100, 250, 0, 250, true).inRange);
    EXPECT_EQ(MoveBar(0, 30, 10, 0, 250, true).position, -30);
}

}  // namespace
