// A run without pages, from the start of the program to its end.

#include "tests/wizard/WizardTest.h"

using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

class SilentRunTest : public WizardTest {};

TEST_F(SilentRunTest, InstallsTheApplicationsInTheOrderOfTheScan) {
    tree.Add({.path = L"Applications\\x64\\c.msi"});
    tree.Add({.path = L"Applications\\x86_x64\\b.msi"});
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi", L"b.msi", L"c.msi"));
    EXPECT_THAT(Removals(), IsEmpty());
    EXPECT_EQ(wizard.ExitCode(), 0U);
}

TEST_F(SilentRunTest, TellsItsStoryInTheBasicLog) {
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    std::vector<std::wstring> messages = BasicMessages(L"");
    // The install thread writes its one record beside those of the walk.
    EXPECT_EQ(std::erase(messages, L"Installing Applications"), 1U);
    EXPECT_THAT(messages, ElementsAre(L"Default Configuration File Values", _, L"Starting Installer",
                                      L"End of silent mode install", L"Installation is Finished"));
}

TEST_F(SilentRunTest, LeavesOneErrorInTheLogThoughNothingHasFailed) {
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    // The system's code for a missing object.
    EXPECT_THAT(BasicMessages(L"ERROR"),
                ElementsAre(L"Exception in CKestruneApp::InitInstance error code = 2"));
}

TEST_F(SilentRunTest, WalksTheWholeChainAndWaitsForTheInstallationAtItsEnd) {
    const std::wstring sign = (tree.Root() / L"go on").wstring();
    tree.Add({.path = L"Applications\\a.msi", .install = {.steps = {{L"untilFile", sign}}}});
    wizard.Start();
    for (int index = 0; index < 11; ++index) {
        EXPECT_TRUE(WaitForMessage(L"Controller::Next, Moving from " + std::to_wstring(index) + L" to " +
                                   std::to_wstring(index + 1)));
    }
    EXPECT_TRUE(WaitForMessage(L"Installation is Finished"));
    EXPECT_THAT(AdvancedLog(), Not(HasRecord(L"", L"Controller::Close")));
    tree.WriteFile(L"go on", {});
    wizard.WaitForEnd();
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Controller::Close"));
}

TEST_F(SilentRunTest, CountsItsInstallThread) {
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Thread Count incremented 1"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Thread Count decremented 0"));
}

TEST_F(SilentRunTest, RollsBackAndEndsWhenAPackageStopsIt) {
    tree.Add({.path = L"Applications\\a.msi"});
    tree.Add({.path = L"Applications\\b.msi", .install = {.steps = {}, .code = 1603}});
    tree.Add({.path = L"Applications\\c.msi"});
    wizard.Start();
    wizard.Answer(IDOK);
    wizard.WaitForEnd();
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi", L"b.msi"));
    EXPECT_THAT(Removals(), ElementsAre(L"a.msi", L"b.msi"));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"User chose to cancel the installation."));
}

TEST_F(SilentRunTest, NeverShowsTheMainWindow) {
    const std::wstring sign = (tree.Root() / L"go on").wstring();
    tree.Add({.path = L"Applications\\a.msi", .install = {.steps = {{L"untilFile", sign}}}});
    wizard.Start();
    EXPECT_TRUE(WaitForMessage(L"Installation is Finished"));
    EXPECT_NE(wizard.MainWindow(), nullptr);
    EXPECT_FALSE(IsWindowVisible(wizard.MainWindow()));
    tree.WriteFile(L"go on", {});
    wizard.WaitForEnd();
}

TEST_F(SilentRunTest, RemovesTheFoldersIntoWhichToolsWereUnpacked) {
    const std::filesystem::path temporary = tree.Root().parent_path();
    for (const wchar_t* kit : {L"ArdentisKit", L"TolvaneKit"}) {
        std::filesystem::create_directories(temporary / kit / L"deeper");
    }
    Run();
    EXPECT_FALSE(std::filesystem::exists(temporary / L"ArdentisKit"));
    EXPECT_FALSE(std::filesystem::exists(temporary / L"TolvaneKit"));
}

TEST_F(SilentRunTest, SaysSoWhenThereIsNothingToInstall) {
    Run();
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"There were no applications found to install"));
    EXPECT_THAT(Installs(), IsEmpty());
    EXPECT_EQ(wizard.ExitCode(), 0U);
}

}  // namespace
