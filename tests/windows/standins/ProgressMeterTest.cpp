#include <gtest/gtest.h>

#include "standins/Brevanto/ProgressMeter.h"

using brevanto::ProgressMeter;

namespace {

TEST(ProgressMeterTest, GivesTheShareOfTheTicks) {
    ProgressMeter meter;
    EXPECT_EQ(meter.Percent(), 0);
    meter.BeginPhase(200, false, false);
    meter.AddTicks(50);
    EXPECT_EQ(meter.Percent(), 25);
}

TEST(ProgressMeterTest, StopsAtHundredWhenTicksAddUpToMore) {
    ProgressMeter meter;
    meter.BeginPhase(100, false, false);
    for (int tick = 0; tick < 18; ++tick) meter.AddTicks(10);
    EXPECT_EQ(meter.Percent(), 100);
}

TEST(ProgressMeterTest, KeepsItsHeightWhenAPhaseBegins) {
    ProgressMeter meter;
    meter.BeginPhase(100, false, false);
    meter.AddTicks(60);
    meter.BeginPhase(1000, false, false);
    EXPECT_EQ(meter.Percent(), 60);
    meter.AddTicks(500);
    EXPECT_EQ(meter.Percent(), 80);
}

TEST(ProgressMeterTest, GivesThePreparationASmallShare) {
    ProgressMeter meter;
    meter.BeginPhase(100, false, true);
    meter.AddTicks(100);
    EXPECT_EQ(meter.Percent(), 10);
    meter.BeginPhase(100, false, false);
    meter.AddTicks(100);
    EXPECT_EQ(meter.Percent(), 100);
}

TEST(ProgressMeterTest, NeverFallsWhileTheInstallerRollsBack) {
    ProgressMeter meter;
    meter.BeginPhase(100, false, false);
    meter.AddTicks(70);
    meter.BeginPhase(100, true, false);
    meter.AddTicks(50);
    EXPECT_EQ(meter.Percent(), 70);
}

TEST(ProgressMeterTest, NeverFallsWhenAPhaseGrows) {
    ProgressMeter meter;
    meter.BeginPhase(100, false, false);
    meter.AddTicks(50);
    meter.ExtendPhase(900);
    meter.AddTicks(10);
    EXPECT_EQ(meter.Percent(), 50);
    meter.AddTicks(490);
    EXPECT_EQ(meter.Percent(), 55);
}

TEST(ProgressMeterTest, CountsActionDataAsTheActionSays) {
    ProgressMeter meter;
    meter.BeginPhase(100, false, false);
    meter.SetTicksPerData(20);
    meter.AddActionData();
    EXPECT_EQ(meter.Percent(), 20);
    meter.SetTicksPerData(0);
    meter.AddActionData();
    EXPECT_EQ(meter.Percent(), 20);
}

TEST(ProgressMeterTest, PassesOverTicksThatMeanNothing) {
    ProgressMeter meter;
    meter.AddTicks(5);
    meter.BeginPhase(0, false, false);
    meter.AddTicks(5);
    meter.BeginPhase(100, false, false);
    meter.AddTicks(-50);
    EXPECT_EQ(meter.Percent(), 0);
}

}  // namespace
