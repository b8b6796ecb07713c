#include <gtest/gtest.h>

#include "discovery/DriverMatch.h"
#include "settings/TextKeys.h"

namespace {

TEST(OverridingDriverTest, FindsTheDriverOfTheDevice) {
    EXPECT_EQ(OverridingDriver(L"A:ONE;B:TWO;", L"B"), L"TWO");
}

TEST(OverridingDriverTest, FindsNothingForAnotherDevice) {
    EXPECT_EQ(OverridingDriver(L"A:ONE;B:TWO;", L"C"), std::nullopt);
}

TEST(OverridingDriverTest, TakesTheLongerEntryThatHoldsTheText) {
    EXPECT_EQ(OverridingDriver(L"X10:TEN;X1:ONE;", L"X1"), L"TEN");
}

TEST(OverridingDriverTest, TakesALastEntryThatNothingClosesToItsEnd) {
    EXPECT_EQ(OverridingDriver(L"A:ONE;B:TWO", L"B"), L"TWO");
}

TEST(OverridingDriverTest, TakesTheNextColonWhereTheTextStandsInADriver) {
    EXPECT_EQ(OverridingDriver(L"A:ONE;B:TWO;", L"ONE"), L"TWO");
}

TEST(OverridingDriverTest, FindsNothingWithoutAColon) {
    EXPECT_EQ(OverridingDriver(L"A", L"A"), std::nullopt);
    EXPECT_EQ(OverridingDriver(L"", L""), std::nullopt);
}

TEST(SelectionTextKeyTest, SpeaksOfFaxOnMultiFunctionDevicesAlone) {
    EXPECT_EQ(SelectionTextKey(true, true), TextKey::DOWNLOAD_INSTALL_TITLE);
    EXPECT_EQ(SelectionTextKey(true, false), TextKey::SELECT_PRINTSCAN_TEXT);
    EXPECT_EQ(SelectionTextKey(false, true), TextKey::SELECT_PRINT_TEXT);
    EXPECT_EQ(SelectionTextKey(false, false), TextKey::SELECT_PRINT_TEXT);
}

}  // namespace
