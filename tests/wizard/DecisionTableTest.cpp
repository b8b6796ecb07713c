// What the run does with a package, by what is installed when it starts and when its turn comes.

#include "tests/wizard/ShownRunTest.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr ScriptedState absent{};
constexpr ScriptedState current{.installed = true, .upToDate = true};
constexpr ScriptedState minor{.installed = true, .upgradable = true, .minorUpgrade = true};

constexpr wchar_t forcedText[] =
    L"This is a ForceReinstall required. Allowing component msi to handle reinstall.";
constexpr wchar_t minorText[] =
    L"This is a Minor upgrade. Reinstall mode will be added into the command line.";

struct DecisionCase {
    const char* name;
    ScriptedState atStart;
    ScriptedState atTurn;
    bool forceReinstall = false;
    bool runs = false;
    bool reinstalls = false;
    // The record of the advanced log that tells of the decision, or nothing.
    const wchar_t* message = L"";
    // The status that the package ends with; -1 for a package that leaves no trace.
    int status = -1;
};

void PrintTo(const DecisionCase& given, std::ostream* stream) {
    *stream << given.name;
}

class DecisionTableTest : public ShownRunTest, public testing::WithParamInterface<DecisionCase> {
protected:
    void AddPackageOfTheCase() {
        std::wstring properties = L"<ProductName>Reader</ProductName>";
        if (GetParam().forceReinstall) properties += L"<FORCEREINSTALL>True</FORCEREINSTALL>";
        tree.Add({.path = L"Applications\\a.msi",
                  .properties = properties,
                  .states = {GetParam().atStart, GetParam().atTurn}});
    }
};

TEST_P(DecisionTableTest, DecidesByTheFirstRowThatFits) {
    const DecisionCase& given = GetParam();
    AddPackageOfTheCase();
    const FinishedRun run = RunShown();
    EXPECT_EQ(Installs().size(), given.runs ? 1U : 0U);
    if (given.runs) {
        EXPECT_EQ(CommandOf(L"a.msi").ends_with(L"<TAG_REINSTALL>true</TAG_REINSTALL>"), given.reinstalls);
        EXPECT_EQ(CommandOf(L"a.msi").find(L"TAG_REINSTALL") != std::wstring::npos, given.reinstalls);
    }
    for (const wchar_t* message : {forcedText, minorText}) {
        EXPECT_EQ(testing::Value(AdvancedLog(), HasRecord(L"", message)),
                  std::wstring_view(message) == given.message);
    }
    EXPECT_EQ(run.status, given.status < 0 ? L"" : StatusDocument({{L"Reader", given.status}}));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DecisionTableTest,
    testing::Values(
        DecisionCase{.name = "NewerIsLeftAlone", .atStart = newer, .atTurn = newer, .status = 0},
        DecisionCase{.name = "NewerIsLeftAloneThoughForced",
                     .atStart = newer,
                     .atTurn = newer,
                     .forceReinstall = true,
                     .status = 0},
        DecisionCase{.name = "ForcedReinstallsWhatIsUpToDate",
                     .atStart = current,
                     .atTurn = current,
                     .forceReinstall = true,
                     .runs = true,
                     .message = forcedText,
                     .status = 0},
        DecisionCase{.name = "ForcedComesBeforeMinorUpgrade",
                     .atStart = minor,
                     .atTurn = minor,
                     .forceReinstall = true,
                     .runs = true,
                     .message = forcedText,
                     .status = 3},
        DecisionCase{.name = "ForcedMeansNothingForWhatIsNotInstalled",
                     .atStart = absent,
                     .atTurn = absent,
                     .forceReinstall = true,
                     .runs = true,
                     .status = 0},
        DecisionCase{.name = "MinorUpgradeReinstalls",
                     .atStart = minor,
                     .atTurn = minor,
                     .runs = true,
                     .reinstalls = true,
                     .message = minorText,
                     .status = 3},
        DecisionCase{.name = "UpToDateIsPassedOver", .atStart = current, .atTurn = current},
        DecisionCase{.name = "InstalledMeanwhileIsPassedOver", .atStart = absent, .atTurn = current},
        DecisionCase{.name = "UpToDateFlagOfWhatIsNotInstalledCountsForNothing",
                     .atStart = absent,
                     .atTurn = {.installed = false, .upToDate = true},
                     .runs = true,
                     .status = 0},
        DecisionCase{.name = "RemovedMeanwhileIsInstalled",
                     .atStart = current,
                     .atTurn = absent,
                     .runs = true,
                     .status = 0},
        DecisionCase{
            .name = "AbsentIsInstalled", .atStart = absent, .atTurn = absent, .runs = true, .status = 0},
        DecisionCase{.name = "OlderIsUpdated", .atStart = older, .atTurn = older, .runs = true, .status = 3}),
    [](const testing::TestParamInfo<DecisionCase>& given) { return std::string(given.param.name); });

class DependentsTest : public ShownRunTest {
protected:
    void AddParent(const ScriptedState& state, const ScriptedCall& install = {}) {
        tree.Add(
            {.path = L"Applications\\parent.msi",
             .properties = L"<ProductName>Parent</ProductName><DEPENDENTAPPS>one.msi two.msi</DEPENDENTAPPS>",
             .states = {state},
             .install = install});
    }

    void AddDependents(const ScriptedCall& installOfTheFirst = {}) {
        tree.Add({.path = L"Dependents\\x86_x64\\two.msi"});
        tree.Add({.path = L"Dependents\\x64\\one.msi", .install = installOfTheFirst});
    }
};

TEST_F(DependentsTest, RunBehindTheirParentInTheOrderOfTheFolders) {
    AddParent(absent);
    AddDependents();
    tree.Add({.path = L"Applications\\x64\\next.msi"});
    const FinishedRun run = RunShown();
    EXPECT_THAT(Installs(), ElementsAre(L"parent.msi", L"two.msi", L"one.msi", L"next.msi"));
    EXPECT_EQ(run.status, StatusDocument({{L"Parent", 0}, {L"two", 0}, {L"one", 0}, {L"next", 0}}));
}

TEST_F(DependentsTest, ThatFailMakeTheirParentFailedAndLeaveItOnTheSystem) {
    AddParent(absent);
    // The code's box goes up, but the run goes on.
    AddDependents({.steps = {}, .code = 1623});
    wizard.Start();
    wizard.Answer(IDOK);
    const FinishedRun run = ReadFinishPage();
    EXPECT_EQ(run.status, StatusDocument({{L"Parent", 1}, {L"two", 0}, {L"one", 1}}));
    EXPECT_EQ(run.installStatus, L"FAILED");
    EXPECT_THAT(Removals(), IsEmpty());
}

TEST_F(DependentsTest, DoNotRunBehindAParentThatAsksForARestart) {
    AddParent(absent, {.steps = {}, .code = 3010});
    AddDependents();
    const FinishedRun run = RunShown();
    EXPECT_THAT(Installs(), ElementsAre(L"parent.msi"));
    EXPECT_EQ(run.status, StatusDocument({{L"Parent", 0}}));
    EXPECT_EQ(run.reboot, L"true");
}

TEST_F(DependentsTest, TakeAParentAlongThatIsInstalledInANewerVersion) {
    AddParent(newer);
    AddDependents();
    const FinishedRun run = RunShown();
    EXPECT_THAT(Installs(), ElementsAre(L"parent.msi", L"two.msi", L"one.msi"));
    EXPECT_THAT(BasicLog(), HasRecordWith(L"", L"A newer version of Parent is already installed."));
    EXPECT_EQ(run.status, StatusDocument({{L"Parent", 0}, {L"two", 0}, {L"one", 0}}));
}

TEST_F(DependentsTest, AreNotRunForAPackageThatNamesNone) {
    tree.Add({.path = L"Applications\\parent.msi",
              .properties = L"<ProductName>Parent</ProductName><DEPENDENTAPPS>other.msi</DEPENDENTAPPS>"});
    AddDependents();
    RunShown();
    EXPECT_THAT(Installs(), ElementsAre(L"parent.msi"));
    EXPECT_THAT(BasicMessages(L"ERROR"), testing::SizeIs(1));
}

TEST_F(DependentsTest, OfDependentsAreReadButNotRun) {
    tree.Add({.path = L"Applications\\parent.msi",
              .properties = L"<ProductName>Parent</ProductName><DEPENDENTAPPS>child.msi</DEPENDENTAPPS>"});
    tree.Add(
        {.path = L"Dependents\\x64\\child.msi",
         .properties = L"<ProductName>Child</ProductName><DEPENDENTAPPS>grandchild.msi</DEPENDENTAPPS>"});
    tree.Add({.path = L"Dependents\\x64\\grandchild.msi"});
    RunShown();
    EXPECT_THAT(Installs(), ElementsAre(L"parent.msi", L"child.msi"));
    std::vector<std::wstring> read;
    for (const LibraryCall& call : Calls(L"MsiGetProperties")) read.push_back(call.Package());
    EXPECT_THAT(read, Contains(L"grandchild.msi"));
}

TEST_F(DependentsTest, AreAlsoThoseWhoseNameIsPartOfANamedOne) {
    tree.Add({.path = L"Applications\\parent.msi",
              .properties = L"<ProductName>Parent</ProductName><DEPENDENTAPPS>abc.msi</DEPENDENTAPPS>"});
    for (const wchar_t* name : {L"abc", L"abcd", L"c"}) {
        tree.Add({.path = std::wstring(L"Dependents\\x64\\") + name + L".msi"});
    }
    RunShown();
    EXPECT_THAT(Installs(), testing::UnorderedElementsAre(L"parent.msi", L"abc.msi", L"c.msi"));
}

TEST_F(DependentsTest, DoNotRunForAParentOutsideTheApplications) {
    tree.SetSettings(std::wstring(Settings::shownFromProgress) + L"<WIN8_DRVTYPES>X</WIN8_DRVTYPES>");
    tree.Add({.path = L"Drivers\\x64\\x.msi",
              .properties = L"<ProductName>X</ProductName><DRIVERID>X</DRIVERID>"
                            L"<DEPENDENTAPPS>one.msi</DEPENDENTAPPS>"});
    AddDependents();
    RunShown();
    EXPECT_THAT(Installs(), ElementsAre(L"x.msi"));
}

}  // namespace
