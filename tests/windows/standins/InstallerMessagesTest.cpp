#include <gtest/gtest.h>

#include "standins/Brevanto/InstallLog.h"
#include "standins/Brevanto/InstallerMessages.h"

using namespace brevanto;

namespace {

TEST(InstallerMessagesTest, ReadsThePhasesAndTicksOfTheInstaller) {
    ProgressMeter meter;
    ApplyProgress({0, 100, 0, 0}, meter);
    ApplyProgress({2, 30}, meter);
    EXPECT_EQ(meter.Percent(), 30);
    ApplyProgress({3, 0, 0}, meter);
    ApplyProgress({1, 10, 1}, meter);
    meter.AddActionData();
    EXPECT_EQ(meter.Percent(), 40);
    ApplyProgress({1, 10, 0}, meter);
    meter.AddActionData();
    EXPECT_EQ(meter.Percent(), 40);
}

TEST(InstallerMessagesTest, TellsPreparationAndRollbackFromWork) {
    ProgressMeter meter;
    ApplyProgress({0, 100, 0, 1}, meter);
    ApplyProgress({2, 100}, meter);
    EXPECT_EQ(meter.Percent(), 10);
    ApplyProgress({0, 100, 1, 0}, meter);
    ApplyProgress({2, 100}, meter);
    EXPECT_EQ(meter.Percent(), 10);
}

TEST(InstallerMessagesTest, PassesOverMessagesOfAnotherForm) {
    ProgressMeter meter;
    ApplyProgress({0, 100}, meter);
    ApplyProgress({}, meter);
    ApplyProgress({2}, meter);
    ApplyProgress({7, 50}, meter);
    EXPECT_EQ(meter.Percent(), 0);
}

TEST(InstallerMessagesTest, WritesAPercentage) {
    EXPECT_EQ(PercentDocument(42), L"<PERCENT>42</PERCENT>");
}

TEST(InstallerMessagesTest, NamesEachProgramOnce) {
    EXPECT_EQ(FilesInUseDocument(L"FILE_IN_USE",
                                 {L"Writer", L"17", L"Reader", L"18", L"Writer", L"19", L"", L"20"}),
              L"<FILE_IN_USE>true</FILE_IN_USE><APPLICATION_NAME>Writer\r\nReader</APPLICATION_NAME>");
}

TEST(InstallerMessagesTest, AsksAboutFilesInUseWithoutANameToo) {
    EXPECT_EQ(FilesInUseDocument(L"RM_FILE_IN_USE", {}),
              L"<RM_FILE_IN_USE>true</RM_FILE_IN_USE><APPLICATION_NAME></APPLICATION_NAME>");
}

TEST(InstallLogTest, LiesBesideTheLogsOfTheVendor) {
    EXPECT_TRUE(InstallLogPath(L"Halvenny").ends_with(L"\\Halvenny Install Logs\\Packages.log"));
    EXPECT_TRUE(InstallLogPath(L"").ends_with(L"\\Printer Install Logs\\Packages.log"));
    EXPECT_TRUE(InstallLogPath(L"..\\a/b:\t").ends_with(L"\\.._a_b__ Install Logs\\Packages.log"));
}

}  // namespace
