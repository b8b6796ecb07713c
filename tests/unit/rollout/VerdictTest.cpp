#include <gtest/gtest.h>

#include "tools/Rollout/Verdict.h"

namespace rollout {
namespace {

constexpr PackageState absent{};
constexpr PackageState upToDate{.installed = true, .upToDate = true};
constexpr PackageState old{.installed = true, .upgradable = true};
constexpr PackageState tooNew{.installed = true};

PackageEntry Entry(const std::wstring& path, const PackageState& before,
                   Intention intention = Intention::Install) {
    return {.path = path, .product = path, .intention = intention, .before = before};
}

// A run that began and came to its end.
RunFacts Ended() {
    RunFacts facts{.exitCode = 0};
    facts.log.began = true;
    return facts;
}

PackageResult JudgeOne(const PackageState& before, const std::optional<PackageState>& after,
                       const RunFacts& facts = Ended()) {
    return JudgeInstalled({Entry(L"a", before)}, {after}, facts).front();
}

std::uint32_t CodeOf(const PackageState& before, const std::optional<PackageState>& after,
                     const RunFacts& facts) {
    return JudgeInstallation(JudgeInstalled({Entry(L"a", before)}, {after}, facts), facts).code;
}

TEST(VerdictTest, NamesWhatBecameOfAPackage) {
    EXPECT_EQ(JudgeOne(absent, upToDate).outcome, PackageOutcome::Installed);
    EXPECT_EQ(JudgeOne(old, upToDate).outcome, PackageOutcome::Updated);
    EXPECT_EQ(JudgeOne(upToDate, upToDate).outcome, PackageOutcome::Unchanged);
    EXPECT_EQ(JudgeOne(tooNew, tooNew).outcome, PackageOutcome::Newer);
    EXPECT_EQ(JudgeOne(absent, absent).outcome, PackageOutcome::Missing);
    EXPECT_EQ(JudgeOne(old, old).outcome, PackageOutcome::Missing);
    EXPECT_EQ(JudgeOne(absent, std::nullopt).outcome, PackageOutcome::Unknown);
}

TEST(VerdictTest, GivesAPackageThatIsMissingTheCodeOfWhatStoppedTheRun) {
    RunFacts facts = Ended();
    EXPECT_EQ(JudgeOne(absent, absent, facts).code, Code::Failed);
    facts.log.packageCancelled = true;
    EXPECT_EQ(JudgeOne(absent, absent, facts).code, Code::Cancelled);
    facts.log.packageFailed = true;
    EXPECT_EQ(JudgeOne(absent, absent, facts).code, Code::Failed);
    facts.cancelled = true;
    EXPECT_EQ(JudgeOne(absent, absent, facts).code, Code::Cancelled);
    facts.timeIsUp = true;
    EXPECT_EQ(JudgeOne(absent, absent, facts).code, Code::TimeIsUp);
}

TEST(VerdictTest, GivesAPackageOfWhichNothingIsKnownTheCodeOfAFailure) {
    EXPECT_EQ(JudgeOne(absent, std::nullopt).code, Code::Failed);
}

TEST(VerdictTest, AsksForALibraryThatSaysHowAllPackagesAre) {
    const auto results = JudgeInstalled({Entry(L"a", absent), Entry(L"b", absent)}, {upToDate}, Ended());
    EXPECT_EQ(results.back().outcome, PackageOutcome::Unknown);
    EXPECT_THAT(JudgeInstallation(results, Ended()).reason,
                testing::HasSubstr(L"does not say what is installed"));
}

TEST(VerdictTest, IsDoneWhereStateAndLogSaySo) {
    EXPECT_EQ(CodeOf(absent, upToDate, Ended()), Code::Done);
}

TEST(VerdictTest, IsAFailureWhereOneOfThemSaysSo) {
    RunFacts facts = Ended();
    EXPECT_EQ(CodeOf(absent, absent, facts), Code::Failed);
    EXPECT_EQ(CodeOf(absent, std::nullopt, facts), Code::Failed);
    facts.log.packageFailed = true;
    EXPECT_EQ(CodeOf(upToDate, upToDate, facts), Code::Failed);
}

TEST(VerdictTest, IsACancelWhereTheLogSaysSoWhateverTheStateIs) {
    RunFacts facts = Ended();
    facts.log.packageCancelled = true;
    EXPECT_EQ(CodeOf(absent, upToDate, facts), Code::Cancelled);
    EXPECT_EQ(CodeOf(absent, absent, facts), Code::Cancelled);
}

TEST(VerdictTest, IsAFailureOfARunThatDidNotComeToItsEnd) {
    RunFacts facts = Ended();
    facts.exitCode = 1;
    EXPECT_EQ(CodeOf(absent, upToDate, facts), Code::Failed);
    facts = Ended();
    facts.exitCode.reset();
    EXPECT_EQ(CodeOf(absent, upToDate, facts), Code::Failed);
    facts = Ended();
    facts.log.crashed = true;
    EXPECT_EQ(CodeOf(absent, upToDate, facts), Code::Failed);
    facts = Ended();
    facts.log.began = false;
    EXPECT_EQ(CodeOf(upToDate, upToDate, facts), Code::Failed);
}

TEST(VerdictTest, SaysWhyARunDidNotBegin) {
    RunFacts facts{.exitCode = 0};
    facts.log.otherCopy = true;
    EXPECT_EQ(CodeOf(absent, absent, facts), Code::InstallerBusy);
    facts.log.otherCopy = false;
    facts.questions = {{.kind = QuestionKind::OtherCopy}};
    EXPECT_EQ(CodeOf(absent, absent, facts), Code::InstallerBusy);
    facts.questions = {{.kind = QuestionKind::NoPermission}};
    EXPECT_EQ(CodeOf(absent, absent, facts), Code::NoAdministrator);
    facts.log.prerequisiteMissing = true;
    EXPECT_EQ(CodeOf(absent, absent, facts), Code::Failed);
}

// A second copy that somebody starts beside the run leaves its record in the same log.
TEST(VerdictTest, DoesNotTakeTheRecordOfAnotherCopyForItsOwn) {
    RunFacts facts = Ended();
    facts.log.otherCopy = true;
    EXPECT_EQ(CodeOf(absent, upToDate, facts), Code::Done);
}

TEST(VerdictTest, SaysThatTheInstallerWasBusyWhereThatMadeAPackageFail) {
    RunFacts facts = Ended();
    facts.log.packageFailed = true;
    facts.questions = {{.kind = QuestionKind::InstallerBusy}};
    EXPECT_EQ(CodeOf(absent, absent, facts), Code::InstallerBusy);
}

TEST(VerdictTest, CountsABoxAsAFailureWhereThatIsWanted) {
    RunFacts facts = Ended();
    facts.questions = {{.kind = QuestionKind::FilesInUse}};
    EXPECT_EQ(CodeOf(absent, upToDate, facts), Code::Done);
    facts.onQuestion = QuestionPolicy::Fail;
    EXPECT_EQ(CodeOf(absent, upToDate, facts), Code::Failed);
}

TEST(VerdictTest, PutsTheRestartBeforeWhatIsNewer) {
    RunFacts facts = Ended();
    EXPECT_EQ(CodeOf(tooNew, tooNew, facts), Code::NewerInstalled);
    facts.log.restartWanted = true;
    EXPECT_EQ(CodeOf(tooNew, tooNew, facts), Code::RestartWanted);
}

TEST(VerdictTest, PutsAnInterruptionBeforeAllElse) {
    RunFacts facts = Ended();
    facts.log.packageFailed = true;
    facts.cancelled = true;
    EXPECT_EQ(CodeOf(absent, absent, facts), Code::Cancelled);
    facts.cancelled = false;
    facts.timeIsUp = true;
    EXPECT_EQ(CodeOf(absent, upToDate, facts), Code::TimeIsUp);
}

TEST(VerdictTest, SaysWhatARollBackLeftBehind) {
    RunFacts facts = Ended();
    facts.log.packageFailed = true;
    const Verdict whole = JudgeInstallation({}, facts);
    facts.log.failedRemovals = {L"Removal of a failed with error=1603"};
    EXPECT_NE(JudgeInstallation({}, facts).reason, whole.reason);
}

TEST(VerdictTest, LeavesADependentOutOnlyWhereItsParentDidNotRun) {
    PackageEntry dependent = Entry(L"d", absent);
    dependent.parent = L"a";
    const auto outcome = [&](Intention intention, bool restart) {
        RunFacts facts = Ended();
        facts.log.restartWanted = restart;
        return JudgeInstalled({Entry(L"a", absent, intention), dependent}, {upToDate, absent}, facts)
            .back()
            .outcome;
    };
    EXPECT_EQ(outcome(Intention::Install, false), PackageOutcome::Missing);
    EXPECT_EQ(outcome(Intention::Install, true), PackageOutcome::LeftOut);
    EXPECT_EQ(outcome(Intention::PassOver, false), PackageOutcome::LeftOut);
    EXPECT_EQ(outcome(Intention::InstallAgain, false), PackageOutcome::Missing);
}

class RemovalVerdictTest : public testing::Test {
protected:
    std::uint32_t CodeOf(const PackageState& before, const std::optional<PackageState>& after) const {
        return JudgeRemoval(JudgeRemoved({Entry(L"a", before)}, {after}, facts), facts).code;
    }

    RunFacts facts;
};

TEST_F(RemovalVerdictTest, NamesWhatBecameOfAPackage) {
    const auto outcome = [&](const PackageState& before, const PackageState& after) {
        return JudgeRemoved({Entry(L"a", before)}, {after}, facts).front().outcome;
    };
    EXPECT_EQ(outcome(upToDate, absent), PackageOutcome::Removed);
    EXPECT_EQ(outcome(absent, absent), PackageOutcome::Unchanged);
    EXPECT_EQ(outcome(tooNew, tooNew), PackageOutcome::Newer);
    EXPECT_EQ(outcome(upToDate, upToDate), PackageOutcome::Remains);
}

TEST_F(RemovalVerdictTest, IsDoneWhereNothingIsLeft) {
    EXPECT_EQ(CodeOf(upToDate, absent), Code::Done);
    EXPECT_EQ(CodeOf(absent, absent), Code::Done);
}

TEST_F(RemovalVerdictTest, IsAFailureWhereSomethingIs) {
    EXPECT_EQ(CodeOf(upToDate, upToDate), Code::Failed);
    EXPECT_EQ(CodeOf(upToDate, std::nullopt), Code::Failed);
}

TEST_F(RemovalVerdictTest, TellsOfARestartACancelAndABusyInstaller) {
    facts.removalCodes = {0};
    EXPECT_EQ(CodeOf(upToDate, absent), Code::Done);
    for (const std::uint32_t code : {3010U, 1641U}) {
        facts.removalCodes = {0, code};
        EXPECT_EQ(CodeOf(upToDate, absent), Code::RestartWanted);
    }
    facts.removalCodes = {1602};
    EXPECT_EQ(CodeOf(upToDate, upToDate), Code::Cancelled);
    facts.removalCodes = {1618};
    EXPECT_EQ(CodeOf(upToDate, upToDate), Code::InstallerBusy);
}

TEST_F(RemovalVerdictTest, SaysWhetherARemovalWasCancelled) {
    const auto reason = [&] { return JudgeRemoval({{.outcome = PackageOutcome::Remains}}, facts).reason; };
    EXPECT_EQ(reason(), L"A package could not be removed.");
    facts.removalCodes = {1602};
    EXPECT_EQ(reason(), L"The removal of a package was cancelled.");
}

TEST_F(RemovalVerdictTest, LeavesWhatIsNewer) {
    EXPECT_EQ(CodeOf(tooNew, tooNew), Code::NewerInstalled);
}

TEST_F(RemovalVerdictTest, PutsAnInterruptionFirst) {
    facts.timeIsUp = true;
    EXPECT_EQ(CodeOf(upToDate, upToDate), Code::TimeIsUp);
    EXPECT_EQ(JudgeRemoved({Entry(L"a", upToDate)}, {upToDate}, facts).front().code, Code::TimeIsUp);
}

}  // namespace
}  // namespace rollout
