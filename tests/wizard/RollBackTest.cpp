// What a run that is stopped takes away again.

#include "tests/wizard/ShownRunTest.h"

using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

class RollBackTest : public ShownRunTest {
protected:
    // Five packages, of which the one at that position fails.
    void AddFive(std::size_t failing, const ScriptedCall& removalOfTheFirst = {}) {
        for (std::size_t index = 0; index < names.size(); ++index) {
            tree.Add({.path = L"Applications\\" + names[index] + L".msi",
                      .install = {.steps = {}, .code = index == failing ? 1603U : 0U},
                      .uninstall = index == 0 ? removalOfTheFirst : ScriptedCall{}});
        }
    }

    FinishedRun RunAndAnswerTheError() {
        wizard.Start();
        wizard.Answer(IDOK);
        return ReadFinishPage();
    }

    const std::vector<std::wstring> names = {L"a", L"b", L"c", L"d", L"e"};
};

class RollBackPositionTest : public RollBackTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(RollBackPositionTest, RemovesInTheOrderOfTheInstallsAndLeavesOutWhatNeverRan) {
    const std::size_t failing = GetParam();
    AddFive(failing);
    const FinishedRun run = RunAndAnswerTheError();
    std::vector<std::wstring> reached;
    std::wstring status;
    for (std::size_t index = 0; index <= failing; ++index) {
        reached.push_back(names[index] + L".msi");
        status +=
            Element(L"App " + std::to_wstring(index),
                    Element(L"NAME", names[index]) + Element(L"STATUS", index == failing ? L"1" : L"2"));
    }
    EXPECT_THAT(Installs(), ElementsAreArray(reached));
    EXPECT_THAT(Removals(), ElementsAreArray(reached));
    EXPECT_EQ(run.status, status);
}

INSTANTIATE_TEST_SUITE_P(EveryPosition, RollBackPositionTest, testing::Values(0, 1, 2, 3, 4));

TEST_F(RollBackTest, LeavesWhatWasInstalledBeforeTheRun) {
    tree.Add({.path = L"Applications\\a.msi", .states = {older}});
    tree.Add({.path = L"Applications\\b.msi", .install = {.steps = {}, .code = 1603}});
    const FinishedRun run = RunAndAnswerTheError();
    EXPECT_THAT(Removals(), ElementsAre(L"b.msi"));
    EXPECT_EQ(run.status, StatusDocument({{L"a", 3}, {L"b", 1}}));
    EXPECT_THAT(BasicLog(),
                HasRecord(L"", ProgramPathOf(L"Applications\\a.msi") +
                                   L" was previously installed the new version will remain on the system. If "
                                   L"the user needs to go back to the previous version they will have to "
                                   L"remove the application and run the old installer"));
}

TEST_F(RollBackTest, GoesOnBehindARemovalThatFails) {
    AddFive(2, {.steps = {}, .code = 1605});
    const FinishedRun run = RunAndAnswerTheError();
    EXPECT_THAT(Removals(), ElementsAre(L"a.msi", L"b.msi", L"c.msi"));
    EXPECT_EQ(run.status, StatusDocument({{L"a", 0}, {L"b", 2}, {L"c", 1}}));
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"Removal of " + ProgramPathOf(L"Applications\\a.msi") +
                                                    L" failed with error=1605"));
}

TEST_F(RollBackTest, RemovesDependentsInTheirOwnTurn) {
    tree.Add({.path = L"Applications\\a.msi",
              .properties = L"<ProductName>a</ProductName><DEPENDENTAPPS>child.msi</DEPENDENTAPPS>"});
    tree.Add({.path = L"Dependents\\x64\\child.msi"});
    tree.Add({.path = L"Applications\\b.msi", .install = {.steps = {}, .code = 1603}});
    const FinishedRun run = RunAndAnswerTheError();
    EXPECT_THAT(Removals(), ElementsAre(L"a.msi", L"child.msi", L"b.msi"));
    EXPECT_EQ(run.status, StatusDocument({{L"a", 2}, {L"child", 2}, {L"b", 1}}));
}

TEST_F(RollBackTest, EndsAListOfDependentsThatFailsAndStopsTheRun) {
    tree.Add({.path = L"Applications\\a.msi",
              .properties = L"<ProductName>a</ProductName><DEPENDENTAPPS>child.msi</DEPENDENTAPPS>"});
    tree.Add({.path = L"Dependents\\x64\\child.msi", .install = {.steps = {}, .code = 1603}});
    tree.Add({.path = L"Applications\\b.msi"});
    const FinishedRun run = RunAndAnswerTheError();
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi", L"child.msi"));
    EXPECT_THAT(Removals(), ElementsAre(L"a.msi", L"child.msi"));
    EXPECT_EQ(run.status, StatusDocument({{L"a", 1}, {L"child", 1}}));
}

TEST_F(RollBackTest, FollowsTheCancelOfTheUserWhileTheThirdOfFiveRuns) {
    for (const std::wstring& name : names) {
        tree.Add({.path = L"Applications\\" + name + L".msi",
                  .install = name == L"c" ? ScriptedCall{.steps = {{L"untilCancel", {}}}, .code = 1602}
                                          : ScriptedCall{}});
    }
    wizard.Start();
    EXPECT_TRUE(WaitUntil([this] { return Installs().size() == 3; }));
    wizard.CloseMainWindow();
    EXPECT_EQ(wizard.Answer(IDYES).text, L"Cancel the installation?");
    const FinishedRun run = ReadFinishPage();
    EXPECT_THAT(Removals(), ElementsAre(L"a.msi", L"b.msi", L"c.msi"));
    EXPECT_EQ(run.status, StatusDocument({{L"a", 2}, {L"b", 2}, {L"c", 2}}));
    EXPECT_EQ(run.installStatus, L"CANCELED");
}

TEST_F(RollBackTest, AsksNothingWhenAnErrorStopsTheRun) {
    AddFive(0);
    RunAndAnswerTheError();
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"User chose to cancel the installation."));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"SUCCESS", L"Controller::Cancel Yes on Are You Sure"));
}

}  // namespace
