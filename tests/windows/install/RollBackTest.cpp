#include "catalogue/AppCatalogue.h"
#include "tests/windows/world/InstallWorld.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

using RollBackTest = InstallWorld;

TEST_F(RollBackTest, RemovesTheFirstThreeOfFiveInTheirOrder) {
    for (const wchar_t* name : {L"a", L"b", L"c", L"d", L"e"}) Add(name);
    msi.packages[L"c.msi"].duringInstall = [&] { service.Cancel(); };
    msi.packages[L"c.msi"].installCode = 1602;
    Run();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install a.msi", L"install b.msi", L"install c.msi", L"cancel",
                                         L"uninstall a.msi", L"uninstall b.msi", L"uninstall c.msi"));
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=2", L"b=2", L"c=2"));
    EXPECT_THAT(threadExitCodes, ElementsAre(31U));
}

class RollBackPositionTest : public InstallWorld, public testing::WithParamInterface<std::size_t> {};

TEST_P(RollBackPositionTest, RemovesWhatTheRunHasReached) {
    std::vector<std::wstring> reached;
    for (std::size_t index = 0; index < 4; ++index) {
        const std::wstring name(1, static_cast<wchar_t>(L'a' + index));
        Add(name);
        if (index <= GetParam()) reached.push_back(name + L"=2");
        if (index == GetParam()) msi.packages[name + L".msi"].duringInstall = [&] { service.Cancel(); };
    }
    Run();
    EXPECT_THAT(StatusLines(), testing::ElementsAreArray(reached));
    EXPECT_EQ(msi.Calls().size(), 2 * reached.size() + 1);
}

INSTANTIATE_TEST_SUITE_P(Positions, RollBackPositionTest, testing::Values(0U, 1U, 2U, 3U));

TEST_F(RollBackTest, FindsNothingToDoWhenTheCancelCameBeforeTheRun) {
    Add(L"a");
    service.Cancel();
    EXPECT_EQ(Run(), 0U);
    EXPECT_THAT(msi.Calls(), ElementsAre(L"cancel"));
    EXPECT_THAT(StatusLines(), IsEmpty());
}

TEST_F(RollBackTest, KeepsWhatWasInstalledBeforeTheRun) {
    FakePackage& package = Add(L"a");
    package.installed = true;
    package.upgradable = true;
    Add(L"b").duringInstall = [&] { service.Cancel(); };
    Run();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install a.msi", L"install b.msi", L"cancel", L"uninstall b.msi"));
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=3", L"b=2"));
    EXPECT_THAT(
        BasicLog(),
        Contains(Record(L"", ProgramTree::AsWritten(L"Applications\\a.msi") +
                                 L" was previously installed the new version will remain on the system. If "
                                 L"the user needs to go back to the previous version they will have to "
                                 L"remove the application and run the old installer")));
}

TEST_F(RollBackTest, TellsOfARemovalThatFailsAndGoesOn) {
    FakePackage& package = Add(L"a");
    package.uninstallCode = 1605;
    package.duringInstall = [&] { service.Cancel(); };
    Run();
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=0"));
    EXPECT_THAT(BasicLog(),
                Contains(Record(L"ERROR", L"Removal of " + ProgramTree::AsWritten(L"Applications\\a.msi") +
                                              L" failed with error=1605")));
}

TEST_F(RollBackTest, LeavesAFailedPackageFailed) {
    FakePackage& package = Add(L"a");
    package.installCode = 1603;
    package.duringInstall = [&] { service.Cancel(); };
    Run();
    EXPECT_THAT(msi.Calls(), Contains(L"uninstall a.msi"));
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=1"));
    EXPECT_EQ(Application(L"a").status, PackageStatus::Failed);
}

TEST_F(RollBackTest, RemovesBothPackagesOfOneName) {
    Add(L"a").properties[L"ProductName"] = L"Twin";
    Add(L"b");
    FakePackage& second = Add(L"c");
    second.properties[L"ProductName"] = L"Twin";
    second.duringInstall = [&] { service.Cancel(); };
    Run();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install a.msi", L"install b.msi", L"install c.msi", L"cancel",
                                         L"uninstall a.msi", L"uninstall b.msi", L"uninstall c.msi"));
    EXPECT_THAT(StatusLines(), ElementsAre(L"Twin=2", L"b=2"));
}

TEST_F(RollBackTest, LeavesTheLineOfOneNameToTheLaterPackage) {
    Add(L"a").properties[L"ProductName"] = L"Twin";
    FakePackage& second = Add(L"b");
    second.properties[L"ProductName"] = L"Twin";
    second.installCode = 1603;
    second.duringInstall = [&] { service.Cancel(); };
    Run();
    EXPECT_THAT(msi.Calls(), Contains(L"uninstall a.msi"));
    EXPECT_THAT(StatusLines(), ElementsAre(L"Twin=1"));
}

TEST_F(RollBackTest, RemovesDependentsInTheirOwnTurn) {
    Add(L"a");
    AddDependent(L"a", L"d").duringInstall = [&] { service.Cancel(); };
    Run();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install a.msi", L"install d.msi", L"cancel", L"uninstall a.msi",
                                         L"uninstall d.msi"));
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=2", L"d=2"));
}

TEST_F(RollBackTest, LeavesOutTheDependentsBehindACancel) {
    Add(L"a").duringInstall = [&] { service.Cancel(); };
    AddDependent(L"a", L"d");
    Run();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install a.msi", L"cancel", L"uninstall a.msi"));
}

}  // namespace
