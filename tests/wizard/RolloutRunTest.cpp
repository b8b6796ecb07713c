// What can happen to a rollout on its way: boxes, a library that hangs, other installations, somebody who
// ends it.

#include <algorithm>
#include <string>

#include "CommonLib/Utf8.h"
#include "tests/wizard/RolloutTest.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;
using testing::SizeIs;

namespace {

constexpr wchar_t wizardMutex[] = L"{BDC7F909-8703-4CB7-B19E-E64710BB1F1E}-kestrune";
constexpr wchar_t filesInUse[] =
    L"<FILE_IN_USE>true</FILE_IN_USE><APPLICATION_NAME>Editor</APPLICATION_NAME>";
constexpr wchar_t closablePrograms[] =
    L"<RM_FILE_IN_USE>true</RM_FILE_IN_USE><APPLICATION_NAME>Editor</APPLICATION_NAME>";

std::string MessageOf(const nlohmann::json& record) {
    return record.at("message");
}

class RolloutRunTest : public RolloutTest {
protected:
    // A package whose installation lasts until the test lets it go on.
    TestPackage Waiting(const std::wstring& path) const {
        return Lasting(path, {.steps = {{L"untilFile", sign}}});
    }
    void LetGoOn() { tree.WriteFile(L"go on", {}); }
    // A script that the library does not understand ends the process that reads it.
    void BreakLibrary() { tree.WriteFile(L"Setup\\x64\\Brevanto.script", std::string_view("n\0o\0\n\0", 6)); }
    // The answers that the library got to its messages.
    std::vector<std::wstring> Answers() const {
        std::vector<std::wstring> answers;
        for (const LibraryCall& call : Calls(L"answer")) answers.push_back(call.Argument(L"answer"));
        return answers;
    }

    const std::wstring sign = (tree.Root() / L"go on").wstring();
};

TEST_F(RolloutRunTest, AnswersTheBoxOfAPackageThatFailsAndTellsOfIt) {
    tree.Add({.path = L"Applications\\a.msi", .install = {.steps = {}, .code = 1603}});
    EXPECT_EQ(RunRollout(), 1603U);
    const nlohmann::json report = Report();
    ASSERT_THAT(report.at("questions"), SizeIs(1));
    EXPECT_EQ(report["questions"][0]["kind"], "failure");
    EXPECT_EQ(report["questions"][0]["title"], "Error");
    EXPECT_EQ(report["questions"][0]["text"], "Something went wrong.");
    EXPECT_THAT(rollout.Output(), HasSubstr("Something went wrong."));
}

TEST_F(RolloutRunTest, TriesFilesInUseTwiceMoreAndThenCancelsThePackage) {
    tree.Add(
        {.path = L"Applications\\a.msi",
         .install = {.steps = {{L"message", filesInUse}, {L"message", filesInUse}, {L"message", filesInUse}},
                     .code = 1602}});
    EXPECT_EQ(RunRollout(), 1602U);
    EXPECT_THAT(Answers(), ElementsAre(L"4", L"4", L"2"));
    EXPECT_THAT(Report().at("questions"), SizeIs(3));
}

TEST_F(RolloutRunTest, ClosesNobodysPrograms) {
    tree.Add(Lasting(L"Applications\\a.msi", {.steps = {{L"message", closablePrograms}}}));
    EXPECT_EQ(RunRollout(), 0U);
    EXPECT_THAT(Answers(), ElementsAre(L"2"));
    EXPECT_EQ(Report().at("questions")[0].at("kind"), "closablePrograms");
}

TEST_F(RolloutRunTest, CountsABoxAsAFailureWhereThatIsAskedFor) {
    tree.Add(Lasting(L"Applications\\a.msi", {.steps = {{L"message", filesInUse}}}));
    EXPECT_EQ(RunRollout(L"--on-question=fail"), 1603U);
    EXPECT_THAT(Answers(), ElementsAre(L"2"));
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "installed")));
}

TEST_F(RolloutRunTest, SaysThatTheInstallerWasBusyWhereTheLibrarySaysSo) {
    tree.Add({.path = L"Applications\\a.msi", .install = {.steps = {}, .code = 1618}});
    EXPECT_EQ(RunRollout(), 1618U);
}

TEST_F(RolloutRunTest, EndsARunThatHangsWhenTimeIsUpAndSaysWhatIsInstalled) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    tree.Add({.path = L"Applications\\b.msi", .keeps = true, .install = {.steps = {{L"untilFile", sign}}}});
    EXPECT_EQ(RunRollout(L"--timeout 4"), 1460U);
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "installed"), Pair("b", "missing")));
    EXPECT_EQ(Report().at("packages")[1].at("code"), 1460);
    EXPECT_FALSE(KillWizard()) << "the wizard is still running";
}

TEST_F(RolloutRunTest, SaysHowFarAWizardCameThatSomebodyEnded) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    tree.Add(Waiting(L"Applications\\b.msi"));
    StartRollout();
    ASSERT_TRUE(WaitUntil([this] { return Installs().size() == 2; }));
    EXPECT_TRUE(KillWizard());
    EXPECT_EQ(rollout.WaitForEnd(), 1603U);
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "installed"), Pair("b", "missing")));
    EXPECT_THAT(Report().at("reason").get<std::string>(), HasSubstr("broke off"));
}

TEST_F(RolloutRunTest, LeavesTheWizardAtWorkWhenItIsEndedItself) {
    tree.Add(Waiting(L"Applications\\a.msi"));
    StartRollout();
    ASSERT_TRUE(WaitUntil([this] { return Installs().size() == 1; }));
    rollout.Kill();
    LetGoOn();
    EXPECT_TRUE(WaitUntil([this] { return std::filesystem::exists(tree.ProgramFolder() / L"a.msi.kept"); }));
}

TEST_F(RolloutRunTest, TakesBackWhatItHasInstalledWhenItIsInterrupted) {
    tree.Add(
        {.path = L"Applications\\a.msi", .states = {{.installed = true, .upToDate = true}}, .keeps = true});
    tree.Add(Lasting(L"Applications\\b.msi"));
    tree.Add(Waiting(L"Applications\\c.msi"));
    StartRollout();
    ASSERT_TRUE(WaitUntil([this] { return Installs().size() == 2; }));
    rollout.Interrupt();
    EXPECT_EQ(rollout.WaitForEnd(), 1602U);
    EXPECT_THAT(Removals(), ElementsAre(L"b.msi"));
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "unchanged"), Pair("b", "missing"), Pair("c", "missing")));
    EXPECT_FALSE(KillWizard()) << "the wizard is still running";
}

TEST_F(RolloutRunTest, WaitsForAnotherCopyOfTheWizard) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    KernelHandle other(CreateMutexW(nullptr, FALSE, wizardMutex));
    StartRollout();
    EXPECT_TRUE(WaitUntil([this] { return rollout.Output().find("Waiting") != std::string::npos; }));
    EXPECT_THAT(Installs(), IsEmpty());
    other.reset();
    EXPECT_EQ(rollout.WaitForEnd(), 0U);
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
}

TEST_F(RolloutRunTest, GivesUpWhereAnotherCopyDoesNotEnd) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    const KernelHandle other(CreateMutexW(nullptr, FALSE, wizardMutex));
    EXPECT_EQ(RunRollout(L"--wait 1"), 1618U);
    EXPECT_THAT(Installs(), IsEmpty());
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"ERROR", L"There is another instance of Kestrune running")));
}

TEST_F(RolloutRunTest, GivesUpWhereAnotherRolloutDoesNotEnd) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    const KernelHandle other(CreateMutexW(nullptr, TRUE, L"Global\\Kestrune-Rollout"));
    EXPECT_EQ(RunRollout(L"--wait 1"), 1618U);
    ReleaseMutex(other.get());
    EXPECT_THAT(Installs(), IsEmpty());
}

TEST_F(RolloutRunTest, GivesUpWhereWindowsInstallerIsAtWork) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    const KernelHandle installer(CreateMutexW(nullptr, TRUE, L"Global\\_MSIExecute"));
    EXPECT_EQ(RunRollout(L"--wait 1"), 1618U);
    ReleaseMutex(installer.get());
    EXPECT_THAT(Installs(), IsEmpty());
}

TEST_F(RolloutRunTest, IsNotHeldUpByAnInstallerThatIsAtRest) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    const KernelHandle installer(CreateMutexW(nullptr, FALSE, L"Global\\_MSIExecute"));
    EXPECT_EQ(RunRollout(L"--wait 1"), 0U);
}

TEST_F(RolloutRunTest, CanBeInterruptedWhileItWaits) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    const KernelHandle other(CreateMutexW(nullptr, FALSE, wizardMutex));
    StartRollout();
    EXPECT_TRUE(WaitUntil([this] { return rollout.Output().find("Waiting") != std::string::npos; }));
    rollout.Interrupt();
    EXPECT_EQ(rollout.WaitForEnd(), 1602U);
}

TEST_F(RolloutRunTest, LetsASecondOneWaitForTheFirst) {
    tree.Add(Waiting(L"Applications\\a.msi"));
    StartRollout();
    ASSERT_TRUE(WaitUntil([this] { return Installs().size() == 1; }));
    RolloutProcess second{tree.ProgramFolder() / L"Rollout.exe", tree.Root() / L"second.txt"};
    second.Start(L"");
    EXPECT_TRUE(WaitUntil([&] { return second.Output().find("Waiting") != std::string::npos; }));
    LetGoOn();
    EXPECT_EQ(rollout.WaitForEnd(), 0U);
    EXPECT_EQ(second.WaitForEnd(), 0U);
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
    EXPECT_THAT(second.Output(), HasSubstr("a: unchanged"));
}

TEST_F(RolloutRunTest, WritesNothingBesideTheProgramAndNothingIntoThePackage) {
    tree.Add(Lasting(L"Applications\\a.msi", {.steps = {}, .code = 1603}));
    const auto files = [this] {
        std::vector<std::wstring> found;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(tree.Root())) {
            const std::wstring name = entry.path().filename().wstring();
            // These are the scripted library's.
            const bool isLibrarys = name == L"Brevanto.record" || name.ends_with(L".kept");
            if (!isLibrarys) found.push_back(entry.path().wstring());
        }
        return found;
    };
    tree.WriteFile(L"rollout.txt", {});
    tree.WriteFile(L"report.json", {});
    const std::vector<std::wstring> before = files();
    EXPECT_EQ(RunRollout(), 1603U);
    EXPECT_THAT(files(), testing::UnorderedElementsAreArray(before));
}

TEST_F(RolloutRunTest, TellsOfTheLogAsItGrowsAndOfWhatIsInstalled) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    tree.Add(Waiting(L"Applications\\b.msi"));
    StartRollout();
    EXPECT_TRUE(WaitUntil([this] { return rollout.Output().find("Installed: a") != std::string::npos; }));
    EXPECT_THAT(rollout.Output(), HasSubstr("Installing Applications"));
    EXPECT_THAT(rollout.Output(), Not(HasSubstr("Installed: b")));
    LetGoOn();
    EXPECT_EQ(rollout.WaitForEnd(), 0U);
    EXPECT_TRUE(Report().at("packages")[0].at("seconds").is_number());
}

TEST_F(RolloutRunTest, HoldsEachRecordOfTheLogOnce) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    EXPECT_EQ(RunRollout(), 0U);
    const nlohmann::json log = Report().at("log");
    EXPECT_EQ(std::ranges::count(log, "Installing Applications", &MessageOf), 1);
}

TEST_F(RolloutRunTest, SaysSoWhereTheLibraryDoesNotAnswer) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    BreakLibrary();
    EXPECT_EQ(RunRollout(), 1603U);
    EXPECT_THAT(Report().at("reason").get<std::string>(), HasSubstr("has ended the program that asks it"));
}

TEST_F(RolloutRunTest, SaysSoWhereTheLibraryDoesNotAnswerAfterwards) {
    tree.Add(Waiting(L"Applications\\a.msi"));
    StartRollout();
    EXPECT_TRUE(WaitForBasicMessage(L"Installing Applications"));
    BreakLibrary();
    LetGoOn();
    EXPECT_EQ(rollout.WaitForEnd(), 1603U);
    EXPECT_THAT(rollout.Output(),
                HasSubstr("ERROR: The library of the package has ended the program that asks it"));
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "unknown")));
}

TEST_F(RolloutRunTest, SaysSoWhereThePackageHasChangedMeanwhile) {
    tree.Add(Waiting(L"Applications\\a.msi"));
    StartRollout();
    EXPECT_TRUE(WaitForBasicMessage(L"Installing Applications"));
    tree.Add(Lasting(L"Applications\\b.msi"));
    LetGoOn();
    EXPECT_EQ(rollout.WaitForEnd(), 1603U);
    EXPECT_THAT(rollout.Output(),
                HasSubstr("ERROR: The package offers 2 packages now, and 1 at the beginning."));
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "unknown")));
}

TEST_F(RolloutRunTest, PrintsThePlanAndChangesNothing) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    EXPECT_EQ(RunRollout(L"--dry-run"), 0U);
    EXPECT_THAT(rollout.Output(), HasSubstr("Applications/a.msi  a \r\n      install (it is not installed)"));
    EXPECT_THAT(Installs(), IsEmpty());
}

TEST_F(RolloutRunTest, PrintsThePlanOfThatPrinterByWhatTheLibrarySays) {
    tree.SetSettings(L"<SILENT_INSTALL>true</SILENT_INSTALL>\r\n<WIN8_DRVTYPES>X</WIN8_DRVTYPES>\r\n");
    tree.Add({.path = L"Applications\\a.msi",
              .properties = Element(L"ProductName", L"Reader") + Element(L"DEPENDENTAPPS", L"b.msi"),
              .states = {older}});
    tree.Add(Lasting(L"Dependents\\x64\\b.msi"));
    tree.Add({.path = L"Drivers\\x64\\d.msi",
              .properties = Element(L"ProductName", L"Driver") + Element(L"DRIVERID", L"X")});
    EXPECT_EQ(RunRollout(L"--dry-run -ip=192.0.2.7 -p=Desk"), 0U);
    EXPECT_THAT(rollout.Output(),
                HasSubstr("Applications/a.msi  Reader \r\n      upgrade (an older version"));
    EXPECT_THAT(rollout.Output(),
                HasSubstr("      Dependents/x64/b.msi  b \r\n          install (it is not"));
    EXPECT_THAT(rollout.Output(), HasSubstr("<PORT_NAME>Desk</PORT_NAME><HOST_NAME>192.0.2.7</HOST_NAME>"));
}

TEST_F(RolloutRunTest, PrintsThePlanOfAPackageThatCannotRunSilently) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    tree.SetSettings(Settings::shownFromProgress);
    EXPECT_EQ(RunRollout(L"--dry-run"), 87U);
    EXPECT_THAT(rollout.Output(), HasSubstr("SILENT_INSTALL is not true: the run shows its pages"));
    EXPECT_THAT(rollout.Output(), HasSubstr("cannot run silently"));
}

TEST_F(RolloutRunTest, CollectsTheLogsAndTheReport) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    SetEnvironmentVariableW(L"KESTRUNE_TEST_DESK", L"desk 1");
    EXPECT_EQ(RunRollout(L"--collect \"" + tree.Root().wstring() + L"\\all\\%KESTRUNE_TEST_DESK%\""), 0U);
    const std::filesystem::path folder = tree.Root() / L"all" / L"desk 1";
    EXPECT_EQ(ReadLog(folder / L"Basic.log", LogForm::Basic).size(), BasicLog().size());
    EXPECT_TRUE(std::filesystem::exists(folder / L"Advanced.log"));
    EXPECT_EQ(std::filesystem::file_size(folder / L"report.json"),
              std::filesystem::file_size(tree.Root() / L"report.json"));
}

TEST_F(RolloutRunTest, KeepsItsCodeWhereNothingCanBeCollected) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    tree.WriteFile(L"all", "a file");
    EXPECT_EQ(RunRollout(L"--collect \"" + tree.Root().wstring() + L"\\all\\desk\""), 0U);
    EXPECT_THAT(rollout.Output(), HasSubstr("ERROR: The folder cannot be made"));
}

TEST_F(RolloutRunTest, KeepsItsCodeWhereTheReportCannotBeWritten) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    rollout.Start(L"--report nowhere\\report.json");
    EXPECT_EQ(rollout.WaitForEnd(), 0U);
    EXPECT_THAT(rollout.Output(), HasSubstr("ERROR: The report cannot be written"));
}

TEST_F(RolloutRunTest, SaysInUtf8WhatItSays) {
    tree.Add({.path = L"Applications\\a.msi",
              .properties = L"<ProductName>Prüfung für 日本</ProductName>",
              .keeps = true});
    EXPECT_EQ(RunRollout(), 0U);
    EXPECT_THAT(rollout.Output(), HasSubstr(ToUtf8(L"Prüfung für 日本: installed")));
    EXPECT_THAT(Outcomes(), ElementsAre(Pair(ToUtf8(L"Prüfung für 日本"), "installed")));
}

TEST_F(RolloutRunTest, PrintsNothingThatATerminalWouldObey) {
    tree.SetText(L"ERROR_TITLE", L"Error\x1b]0;owned\x07");
    tree.Add({.path = L"Applications\\a.msi",
              .properties = L"<ProductName>a\x1b[2J\u202Eb</ProductName>",
              .install = {.steps = {}, .code = 1603}});
    EXPECT_EQ(RunRollout(), 1603U);
    EXPECT_THAT(rollout.Output(), Not(HasSubstr("\x1b")));
    EXPECT_THAT(rollout.Output(), HasSubstr("a\\u001B[2J\\u202Eb: "));
}

// Whoever is logged on can take the lock, and a record waits for it.
TEST_F(RolloutRunTest, EndsInTimeThoughSomebodyKeepsTheLockOfTheLogs) {
    const KernelHandle lock(CreateMutexW(nullptr, TRUE, L"ZVINSTALLLOG"));
    tree.Add(Lasting(L"Applications\\a.msi"));
    EXPECT_EQ(RunRollout(L"--timeout 3"), 1460U);
    EXPECT_FALSE(KillWizard());
    EXPECT_THAT(Installs(), IsEmpty());
}

class RolloutRemovalTest : public RolloutRunTest {};

TEST_F(RolloutRemovalTest, RemovesThePackagesInTheReverseOrder) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    tree.Add(Lasting(L"Applications\\x64\\b.msi"));
    EXPECT_EQ(RunRollout(), 0U);
    EXPECT_EQ(RunRollout(L"--uninstall"), 0U);
    EXPECT_THAT(Removals(), ElementsAre(L"b.msi", L"a.msi"));
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "removed"), Pair("b", "removed")));
    EXPECT_EQ(Report().at("action"), "uninstall");
}

TEST_F(RolloutRemovalTest, NeedsNoSilentSettings) {
    TestPackage package = Lasting(L"Applications\\a.msi");
    package.states = {{.installed = true, .upToDate = true}};
    tree.Add(package);
    tree.SetSettings(Settings::shownFromProgress);
    EXPECT_EQ(RunRollout(L"--uninstall"), 0U);
    EXPECT_THAT(Removals(), ElementsAre(L"a.msi"));
}

TEST_F(RolloutRemovalTest, LeavesWhatIsNotThereAndWhatIsNewer) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    tree.Add({.path = L"Applications\\b.msi", .states = {newer}});
    EXPECT_EQ(RunRollout(L"--uninstall"), 1638U);
    EXPECT_THAT(Removals(), IsEmpty());
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "unchanged"), Pair("b", "newer")));
}

TEST_F(RolloutRemovalTest, SaysWhatRemains) {
    tree.Add({.path = L"Applications\\a.msi",
              .states = {{.installed = true, .upToDate = true}},
              .uninstall = {.steps = {}, .code = 1603}});
    EXPECT_EQ(RunRollout(L"--uninstall"), 1603U);
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "remains")));
}

TEST_F(RolloutRemovalTest, PassesTheWishForARestartOn) {
    tree.Add({.path = L"Applications\\a.msi",
              .states = {older},
              .keeps = true,
              .uninstall = {.steps = {{L"message", closablePrograms}}, .code = 3010}});
    EXPECT_EQ(RunRollout(L"--uninstall"), 3010U);
    EXPECT_THAT(Answers(), ElementsAre(L"2"));
}

TEST_F(RolloutRemovalTest, EndsWhenTimeIsUp) {
    tree.Add({.path = L"Applications\\a.msi",
              .states = {older},
              .keeps = true,
              .uninstall = {.steps = {{L"untilFile", sign}}}});
    EXPECT_EQ(RunRollout(L"--uninstall --timeout 3"), 1460U);
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "remains")));
}

}  // namespace
