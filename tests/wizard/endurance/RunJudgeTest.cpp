#include <gmock/gmock.h>

#include "CommonLib/LogRecord.h"
#include "tests/wizard/endurance/RunJudge.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// A run that installs a and b, as it is to be.
class RunJudgeTest : public testing::Test {
protected:
    RunJudgeTest() {
        Call(L"MsiInstallApp", L"a.msi");
        Call(L"MsiInstallApp", L"b.msi");
        run.hasEnded = true;
        run.installedAfter = {L"a.msi", L"b.msi"};
        Log(L"Installation is Finished");
        run.advancedLog = run.basicLog;
        Write(run.advancedLog, L"Controller::Close");
    }

    void Call(const std::wstring& name, const std::wstring& file) {
        run.calls.push_back({.thread = {}, .name = name, .arguments = {{L"path", L"C:\\" + file}}});
    }

    void Log(std::wstring_view message) { Write(run.basicLog, message); }

    // The second package fails, and both are removed.
    void RollBack() {
        run.codes[L"b.msi"] = {.install = 1603};
        run.installedAfter = {};
        Log(L"MSI Installer returned an error");
        Log(L"User chose to cancel the installation.");
        Call(L"MsiUninstallApp", L"a.msi");
        Call(L"MsiUninstallApp", L"b.msi");
    }

    RunTraces run;

private:
    static void Write(std::string& log, std::wstring_view message) {
        const std::wstring record = FormatBasicRecord({}, {}, message);
        log.append(reinterpret_cast<const char*>(record.data()), record.size() * sizeof(wchar_t));
    }
};

TEST_F(RunJudgeTest, FindsNothingInAGoodRun) {
    EXPECT_THAT(FaultsOf(run), IsEmpty());
}

TEST_F(RunJudgeTest, FindsNothingInAGoodRollBack) {
    RollBack();
    EXPECT_THAT(FaultsOf(run), IsEmpty());
}

TEST_F(RunJudgeTest, FindsAProductThatIsReportedAndNotInstalled) {
    run.installedAfter.erase(L"b.msi");
    EXPECT_THAT(FaultsOf(run), ElementsAre("b.msi: is reported and not installed"));
}

TEST_F(RunJudgeTest, FindsAProductThatIsInstalledAndNotReported) {
    run.codes[L"b.msi"] = {.install = 1622};
    Log(L"MSI Installer returned an error");
    EXPECT_THAT(FaultsOf(run), ElementsAre("b.msi: is installed and not reported"));
}

TEST_F(RunJudgeTest, FindsAProductThatARollBackLeaves) {
    RollBack();
    run.calls.erase(run.calls.begin() + 2);
    run.installedAfter = {L"a.msi"};
    EXPECT_THAT(FaultsOf(run), ElementsAre("a.msi: is left by a roll-back"));
}

TEST_F(RunJudgeTest, FindsAProductThatARollBackTakesFromTheUser) {
    RollBack();
    run.installedBefore = {L"a.msi"};
    run.installedAfter = {L"a.msi"};
    EXPECT_THAT(FaultsOf(run), ElementsAre("a.msi: is removed although it was there before"));
}

TEST_F(RunJudgeTest, FindsARemovalWithoutAReason) {
    Call(L"MsiUninstallApp", L"b.msi");
    run.installedAfter.erase(L"b.msi");
    EXPECT_THAT(FaultsOf(run), ElementsAre("b.msi: is removed by a run that nothing stopped"));
}

TEST_F(RunJudgeTest, FindsAPackageAfterTheOneThatStopsTheRun) {
    RollBack();
    run.codes = {{L"a.msi", {.install = 1603}}};
    EXPECT_THAT(FaultsOf(run), ElementsAre("b.msi: is installed after a package that stops the run"));
}

TEST_F(RunJudgeTest, FindsARemovalThatFailedWithoutAReport) {
    RollBack();
    run.codes[L"a.msi"] = {.removal = 1605};
    run.installedAfter = {L"a.msi"};
    EXPECT_THAT(FaultsOf(run), ElementsAre("a.msi: could not be removed and is not reported"));
    Log(L"Removal of C:\\a.msi failed with error=1605");
    EXPECT_THAT(FaultsOf(run), IsEmpty());
}

TEST_F(RunJudgeTest, FindsAReportThatIsMissingOrTooMuch) {
    run.codes[L"a.msi"] = {.install = 3010};
    EXPECT_THAT(FaultsOf(run),
                ElementsAre("0 and not 1 times in the log: MSI Installer returned reboot requires."));
    Log(L"MSI Installer returned reboot requires.");
    Log(L"User chose to cancel the installation.");
    EXPECT_THAT(FaultsOf(run),
                ElementsAre("1 and not 0 times in the log: User chose to cancel the installation."));
}

TEST_F(RunJudgeTest, FindsAWalkThatHasNotComeToItsEnd) {
    run.advancedLog.clear();
    run.basicLog.clear();
    EXPECT_THAT(FaultsOf(run), ElementsAre("0 and not 1 times in the log: Installation is Finished",
                                           "the walk was not closed"));
}

TEST_F(RunJudgeTest, FindsAnExceptionThatNobodyHasCaught) {
    Log(L"Unhandled exception in the install thread: x");
    EXPECT_THAT(FaultsOf(run), ElementsAre("an exception came through"));
}

TEST_F(RunJudgeTest, FindsAFinishPageThatSaysSomethingElse) {
    run.showsStatuses = true;
    run.statuses = {{L"a.msi", 0}};
    EXPECT_THAT(FaultsOf(run), ElementsAre("b.msi: is not on the Finish page"));
    run.statuses[L"b.msi"] = 2;
    EXPECT_THAT(FaultsOf(run), ElementsAre("b.msi: is installed, says the Finish page otherwise"));
    RollBack();
    run.statuses[L"b.msi"] = 1;
    EXPECT_THAT(FaultsOf(run), ElementsAre("a.msi: is not installed, says the Finish page otherwise"));
    run.statuses[L"a.msi"] = 2;
    EXPECT_THAT(FaultsOf(run), IsEmpty());
}

TEST_F(RunJudgeTest, LetsTheStatusStayWhereARemovalWantsARestart) {
    RollBack();
    Log(L"Removal of C:\\a.msi failed with error=3010");
    run.showsStatuses = true;
    run.statuses = {{L"a.msi", 0}, {L"b.msi", 1}};
    run.codes[L"a.msi"] = {.removal = 3010};
    EXPECT_THAT(FaultsOf(run), IsEmpty());
    run.codes[L"a.msi"] = {.removal = 1603};
    Log(L"Removal of C:\\a.msi failed with error=1603");
    EXPECT_THAT(FaultsOf(run), ElementsAre("a.msi: is reported and not installed",
                                           "a.msi: is not installed, says the Finish page otherwise"));
}

TEST_F(RunJudgeTest, LetsTheOptionalSoftwareGoOnAfterAFailure) {
    run.isOptional = true;
    run.codes = {{L"a.msi", {.install = 1603}}};
    run.installedAfter.erase(L"a.msi");
    Log(L"MSI Installer returned an error");
    EXPECT_THAT(FaultsOf(run), IsEmpty());
}

TEST_F(RunJudgeTest, AsksNoReportsOfLogsThatTakeNone) {
    run.logsTakeRecords = false;
    run.basicLog.clear();
    EXPECT_THAT(FaultsOf(run), IsEmpty());
}

}  // namespace
