#include <gtest/gtest.h>

#include "install/InstallDecision.h"

namespace {

MSI_APP Installed() {
    MSI_APP app;
    app.installed = true;
    return app;
}

TEST(DecideInstallTest, AsksAgainForAFreshPackage) {
    EXPECT_EQ(DecideInstall(MSI_APP()), InstallAction::AskAgain);
}

TEST(DecideInstallTest, AsksAgainForAPackageThatIsUpToDate) {
    auto app = Installed();
    app.upToDate = true;
    EXPECT_EQ(DecideInstall(app), InstallAction::AskAgain);
}

TEST(DecideInstallTest, ReportsANewerProductWithoutDependents) {
    auto app = Installed();
    app.newerInstalled = true;
    EXPECT_TRUE(ReportsNewer(app));
    EXPECT_EQ(DecideInstall(app), InstallAction::ReportNewer);
}

TEST(DecideInstallTest, GoesOnForANewerProductWithDependents) {
    auto app = Installed();
    app.newerInstalled = true;
    app.hasDependents = true;
    EXPECT_TRUE(ReportsNewer(app));
    EXPECT_EQ(DecideInstall(app), InstallAction::AskAgain);
    app.forceReinstall = true;
    EXPECT_EQ(DecideInstall(app), InstallAction::ForceReinstall);
}

TEST(DecideInstallTest, ReportsNothingForAProductThatIsNotInstalled) {
    MSI_APP app;
    app.newerInstalled = true;
    EXPECT_FALSE(ReportsNewer(app));
    EXPECT_EQ(DecideInstall(app), InstallAction::AskAgain);
}

TEST(DecideInstallTest, RunsDependentsBeforeAnyReinstallation) {
    auto app = Installed();
    app.onlyDependentsSelected = true;
    app.forceReinstall = true;
    app.minorUpgrade = true;
    EXPECT_EQ(DecideInstall(app), InstallAction::RunDependentsOnly);
}

TEST(DecideInstallTest, PrefersTheForcedReinstallationToTheMinorUpgrade) {
    auto app = Installed();
    app.minorUpgrade = true;
    EXPECT_EQ(DecideInstall(app), InstallAction::MinorUpgrade);
    app.forceReinstall = true;
    EXPECT_EQ(DecideInstall(app), InstallAction::ForceReinstall);
}

TEST(DecideInstallTest, NeedsAnInstalledProductForEither) {
    MSI_APP app;
    app.minorUpgrade = true;
    app.forceReinstall = true;
    EXPECT_EQ(DecideInstall(app), InstallAction::AskAgain);
}

struct CodeCase {
    std::uint32_t code;
    InstallOutcome outcome;
};

class ReturnCodeTest : public testing::TestWithParam<CodeCase> {};

TEST_P(ReturnCodeTest, HasAnOutcome) {
    EXPECT_EQ(ReadReturnCode(GetParam().code, false, false), GetParam().outcome);
    EXPECT_EQ(ReadReturnCode(GetParam().code, false, true), GetParam().outcome);
    EXPECT_EQ(ReadReturnCode(GetParam().code, true, false), GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(
    Codes, ReturnCodeTest,
    testing::Values(CodeCase{0, InstallOutcome::Done}, CodeCase{1602, InstallOutcome::Cancelled},
                    CodeCase{1641, InstallOutcome::RebootRequired},
                    CodeCase{3010, InstallOutcome::RebootRequired}, CodeCase{1, InstallOutcome::Failed},
                    CodeCase{1603, InstallOutcome::Failed}, CodeCase{1618, InstallOutcome::Failed},
                    CodeCase{0xFFFFFFFF, InstallOutcome::Failed}));

TEST(ReturnCodeTest, MakesAFailedScanDriverUnsupportedOnAnOldSystem) {
    EXPECT_EQ(ReadReturnCode(1603, true, true), InstallOutcome::NotSupported);
    EXPECT_EQ(ReadReturnCode(1602, true, true), InstallOutcome::Cancelled);
    EXPECT_EQ(ReadReturnCode(0, true, true), InstallOutcome::Done);
}

TEST(StatusTest, FollowsTheOutcome) {
    const MSI_APP fresh;
    EXPECT_EQ(StatusFor(InstallOutcome::Done, fresh), PackageStatus::Done);
    EXPECT_EQ(StatusFor(InstallOutcome::RebootRequired, fresh), PackageStatus::Done);
    EXPECT_EQ(StatusFor(InstallOutcome::Failed, fresh), PackageStatus::Failed);
    EXPECT_EQ(StatusFor(InstallOutcome::Cancelled, fresh), PackageStatus::Cancelled);
    EXPECT_EQ(StatusFor(InstallOutcome::NotSupported, fresh), PackageStatus::NotSupported);
}

TEST(StatusTest, IsUpdatedForAnUpgradeThatSucceeded) {
    auto app = Installed();
    EXPECT_EQ(StatusFor(InstallOutcome::Done, app), PackageStatus::Done);
    app.upgradable = true;
    EXPECT_EQ(StatusFor(InstallOutcome::Done, app), PackageStatus::Updated);
    EXPECT_EQ(StatusFor(InstallOutcome::RebootRequired, app), PackageStatus::Updated);
    EXPECT_EQ(StatusFor(InstallOutcome::Failed, app), PackageStatus::Failed);
    app.installed = false;
    EXPECT_EQ(StatusFor(InstallOutcome::Done, app), PackageStatus::Done);
}

struct DialogCase {
    std::uint32_t code;
    std::wstring prefix;
    bool stops;
};

class ErrorDialogTest : public testing::TestWithParam<DialogCase> {};

TEST_P(ErrorDialogTest, HasTextsAndSaysWhetherTheRunStops) {
    const auto dialog = ErrorDialogFor(GetParam().code);
    const auto& prefix = GetParam().prefix;
    EXPECT_EQ(dialog.titleKey.Name(), prefix.empty() ? L"" : prefix + L"_TITLE");
    EXPECT_EQ(dialog.textKey.Name(), prefix.empty() ? L"" : prefix + L"_TEXT");
    EXPECT_EQ(dialog.stopsRun, GetParam().stops);
}

INSTANTIATE_TEST_SUITE_P(Codes, ErrorDialogTest,
                         testing::Values(DialogCase{1602, L"", false}, DialogCase{1622, L"", false},
                                         DialogCase{1623, L"", false},
                                         DialogCase{112, L"DISK_FULL_ERROR", true},
                                         DialogCase{1247, L"INSTALL_ALREADY_RUNNING", true},
                                         DialogCase{1618, L"INSTALL_ALREADY_RUNNING", true},
                                         DialogCase{1625, L"PERMISSION_ERROR", true},
                                         DialogCase{1640, L"PERMISSION_ERROR", true},
                                         DialogCase{1603, L"ERROR", true}, DialogCase{1, L"ERROR", true}));

}  // namespace
