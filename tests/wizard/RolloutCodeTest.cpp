// The codes with which a rollout ends.

#include "tests/wizard/RolloutTest.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

namespace {

class RolloutCodeTest : public RolloutTest {};

TEST_F(RolloutCodeTest, IsZeroWhereAllIsInstalled) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    tree.Add(Lasting(L"Applications\\x64\\b.msi"));
    EXPECT_EQ(RunRollout(), 0U);
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi", L"b.msi"));
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "installed"), Pair("b", "installed")));
}

TEST_F(RolloutCodeTest, IsZeroWhereAllIsThereAlready) {
    tree.Add({.path = L"Applications\\a.msi", .states = {{.installed = true, .upToDate = true}}});
    EXPECT_EQ(RunRollout(), 0U);
    EXPECT_THAT(Installs(), IsEmpty());
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "unchanged")));
}

TEST_F(RolloutCodeTest, SaysThatAnOlderVersionWasUpdated) {
    TestPackage package = Lasting(L"Applications\\a.msi");
    package.states = {older};
    tree.Add(package);
    EXPECT_EQ(RunRollout(), 0U);
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "updated")));
}

TEST_F(RolloutCodeTest, Is3010WhereAPackageWantsARestart) {
    tree.Add(Lasting(L"Applications\\a.msi", {.steps = {}, .code = 3010}));
    tree.Add(Lasting(L"Applications\\x64\\b.msi"));
    EXPECT_EQ(RunRollout(), 3010U);
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "installed"), Pair("b", "installed")));
}

TEST_F(RolloutCodeTest, Is1603WhereAPackageFailsAndTheOthersAreRemovedAgain) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    tree.Add(Lasting(L"Applications\\b.msi", {.steps = {}, .code = 1603}));
    tree.Add(Lasting(L"Applications\\c.msi"));
    EXPECT_EQ(RunRollout(), 1603U);
    EXPECT_THAT(Removals(), ElementsAre(L"a.msi", L"b.msi"));
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "missing"), Pair("b", "missing"), Pair("c", "missing")));
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"MSI Installer returned an error"));
}

// The state of the packages alone would not tell: the package is there before and after.
TEST_F(RolloutCodeTest, Is1603WhereAReinstallationFails) {
    tree.Add({.path = L"Applications\\a.msi",
              .properties = L"<ProductName>a</ProductName><FORCEREINSTALL>TRUE</FORCEREINSTALL>",
              .states = {{.installed = true, .upToDate = true}},
              .install = {.steps = {}, .code = 1603}});
    EXPECT_EQ(RunRollout(), 1603U);
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "unchanged")));
}

// The log alone would not tell: the library says that it is done.
TEST_F(RolloutCodeTest, Is1603WhereAPackageIsNotThereThoughNothingHasFailed) {
    tree.Add({.path = L"Applications\\a.msi"});
    EXPECT_EQ(RunRollout(), 1603U);
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "missing")));
}

TEST_F(RolloutCodeTest, Is1603WithoutTheLibraryOfThePackage) {
    tree.Add({.path = L"Applications\\a.msi"});
    tree.UseLibrary({});
    EXPECT_EQ(RunRollout(), 1603U);
    EXPECT_THAT(Report().at("reason").get<std::string>(), HasSubstr("could not be loaded"));
}

TEST_F(RolloutCodeTest, Is1602WhereAPackageWasCancelled) {
    tree.Add(Lasting(L"Applications\\a.msi", {.steps = {}, .code = 1602}));
    EXPECT_EQ(RunRollout(), 1602U);
}

TEST_F(RolloutCodeTest, Is1638WhereSomethingNewerIsInstalled) {
    tree.Add({.path = L"Applications\\a.msi", .states = {newer}});
    tree.Add(Lasting(L"Applications\\x64\\b.msi"));
    EXPECT_EQ(RunRollout(), 1638U);
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "newer"), Pair("b", "installed")));
}

TEST_F(RolloutCodeTest, Is87ForAPackageThatShowsPages) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    tree.SetSettings(Settings::shownFromProgress);
    EXPECT_EQ(RunRollout(), 87U);
    EXPECT_THAT(Installs(), IsEmpty());
    EXPECT_THAT(BasicMessages(L""), testing::Not(testing::Contains(L"Starting Installer")));
}

TEST_F(RolloutCodeTest, Is87ForASilentPackageThatHasNoPrinter) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    tree.SetSettings(L"<SILENT_INSTALL>true</SILENT_INSTALL>");
    EXPECT_EQ(RunRollout(), 87U);
    EXPECT_THAT(Installs(), IsEmpty());
}

TEST_F(RolloutCodeTest, IsZeroForSuchAPackageWithAPrinterFromTheCommandLine) {
    tree.SetSettings(L"<SILENT_INSTALL>true</SILENT_INSTALL><WIN8_DRVTYPES>X</WIN8_DRVTYPES>");
    tree.Add({.path = L"Drivers\\x64\\x.msi",
              .properties = L"<ProductName>X</ProductName><DRIVERID>X</DRIVERID>",
              .keeps = true});
    EXPECT_EQ(RunRollout(L"-ip=10.0.0.5 \"-p=Front desk\""), 0U);
    EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(L"<HOST_NAME>10.0.0.5</HOST_NAME>"));
    EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(L"<PORT_NAME>Front desk</PORT_NAME>"));
}

TEST_F(RolloutCodeTest, Is87ForAPackageThatOffersNothing) {
    EXPECT_EQ(RunRollout(), 87U);
    EXPECT_THAT(Report().at("reason").get<std::string>(), HasSubstr("offers nothing"));
}

TEST_F(RolloutCodeTest, Is87WithoutSettings) {
    tree.RemoveFile(L"Setup\\defaultInstallSettings.xml");
    EXPECT_EQ(RunRollout(), 87U);
    EXPECT_THAT(Report().at("reason").get<std::string>(), HasSubstr("no defaultInstallSettings.xml"));
}

TEST_F(RolloutCodeTest, Is87ForACommandLineThatIsWrong) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    EXPECT_EQ(RunRollout(L"--tomeout 5"), 87U);
    EXPECT_THAT(rollout.Output(), HasSubstr("unknown: --tomeout"));
    EXPECT_THAT(Installs(), IsEmpty());
}

TEST_F(RolloutCodeTest, Is740ForAUserWhoIsNoAdministrator) {
    tree.Add(Lasting(L"Applications\\a.msi"));
    rollout.Start({}, RestrictedToken().get());
    EXPECT_EQ(rollout.WaitForEnd(), 740U);
    // The wizard, which would say so in a box, was not even started.
    EXPECT_THAT(rollout.Output(), HasSubstr("needs the rights"));
    EXPECT_THAT(Installs(), IsEmpty());
}

TEST_F(RolloutCodeTest, Is1603WhereTheFrameworkIsMissing) {
    tree.Add(
        {.path = L"Applications\\a.msi",
         .properties =
             L"<ProductName>a</ProductName><SecureCustomProperties>NETFRAMEWORK40</SecureCustomProperties>"});
    EXPECT_EQ(RunRollout(), 1603U);
    EXPECT_THAT(Report().at("reason").get<std::string>(), HasSubstr(".NET Framework"));
    EXPECT_FALSE(std::filesystem::exists(tree.ProgramFolder() / L"Basic.log"));
}

TEST_F(RolloutCodeTest, IsThatOfThisRunWhateverEarlierRunsHaveLogged) {
    tree.Add(Lasting(L"Applications\\a.msi", {.steps = {}, .code = 3010}));
    EXPECT_EQ(RunRollout(), 3010U);
    EXPECT_EQ(RunRollout(), 0U);
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "unchanged")));
}

TEST_F(RolloutCodeTest, LeavesADependentOutThatItsParentDoesNotTakeAlong) {
    TestPackage parent = Lasting(L"Applications\\a.msi", {.steps = {}, .code = 3010});
    parent.properties = L"<ProductName>a</ProductName><DEPENDENTAPPS>d.msi</DEPENDENTAPPS>";
    tree.Add(parent);
    tree.Add(Lasting(L"Dependents\\x64\\d.msi"));
    EXPECT_EQ(RunRollout(), 3010U);
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "installed"), Pair("d", "leftOut")));
}

TEST_F(RolloutCodeTest, Is1603WhereADependentFails) {
    TestPackage parent = Lasting(L"Applications\\a.msi");
    parent.properties = L"<ProductName>a</ProductName><DEPENDENTAPPS>d.msi</DEPENDENTAPPS>";
    tree.Add(parent);
    tree.Add(Lasting(L"Dependents\\x64\\d.msi", {.steps = {}, .code = 1603}));
    EXPECT_EQ(RunRollout(), 1603U);
    EXPECT_THAT(Outcomes(), ElementsAre(Pair("a", "missing"), Pair("d", "missing")));
}

}  // namespace
