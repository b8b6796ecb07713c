#include "catalogue/AppCatalogue.h"
#include "catalogue/MsiInfoService.h"
#include "tests/windows/world/CatalogueWorld.h"

namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

class MsiInfoServiceTest : public CatalogueWorld {};

TEST_F(MsiInfoServiceTest, FindsNothingInAnEmptyTree) {
    EXPECT_EQ(MsiInfoService(msi, Settings(), Texts(), AppRecords(), DriverRecords()).DoRun(), 0U);
    EXPECT_THAT(Applications(), IsEmpty());
    EXPECT_THAT(DriverNames(), IsEmpty());
    EXPECT_THAT(BasicLog(), IsEmpty());
}

TEST_F(MsiInfoServiceTest, ScansTheFoldersInTheirOrder) {
    AddPackage(L"Optional\\x64", L"o2.msi");
    AddPackage(L"Optional\\x86_x64", L"o1.msi");
    AddPackage(L"Common\\x64", L"c2.msi");
    AddPackage(L"Common\\x86_x64", L"c1.msi");
    AddPackage(L"Applications\\x64", L"a3.msi");
    AddPackage(L"Applications\\x86_x64", L"a2.msi");
    AddPackage(L"Applications", L"a1.msi");
    AddPackage(L"Applications", L"no-package.txt");
    AddPackage(L"Applications\\arm64", L"other.msi");
    BuildCatalogues();
    EXPECT_THAT(ApplicationNames(), ElementsAre(L"a1", L"a2", L"a3", L"c1", L"c2", L"o1", L"o2"));
}

TEST_F(MsiInfoServiceTest, SelectsApplicationsAndOffersTheRest) {
    AddPackage(L"Applications", L"a.msi");
    AddPackage(L"Common\\x64", L"c.msi");
    AddPackage(L"Optional\\x64", L"o.msi");
    BuildCatalogues();
    for (const wchar_t* name : {L"a", L"c", L"o"}) {
        const bool isApplication = name[0] == L'a';
        EXPECT_EQ(Application(name).isSelected, isApplication);
        EXPECT_EQ(Application(name).isOptional, !isApplication);
        EXPECT_EQ(Application(name).status, PackageStatus::NotRun);
    }
}

TEST_F(MsiInfoServiceTest, KeepsTheSameProductOfTwoFolders) {
    AddPackage(L"Applications\\x86_x64", L"same.msi");
    AddPackage(L"Applications\\x64", L"same.msi");
    BuildCatalogues();
    EXPECT_THAT(ApplicationNames(), ElementsAre(L"same", L"same"));
    EXPECT_EQ(Applications().front().msiPath, ProgramTree::AsWritten(L"Applications\\x86_x64\\same.msi"));
}

TEST_F(MsiInfoServiceTest, ReadsEveryPropertyIntoItsField) {
    AddPackage(L"Applications", L"a.msi").properties = {{L"ProductName", L"name"},
                                                        {L"MSIDESCRIPTION", L"description"},
                                                        {L"ProductVersion", L"1.2.3"},
                                                        {L"DEVICETYPE", L"PRINTER"},
                                                        {L"APPTYPE", L"NIMBOJET"},
                                                        {L"STARTAPP", L"a.exe;"},
                                                        {L"SecureCustomProperties", L"NETFRAMEWORK40"},
                                                        {L"DRIVERID", L"PS"},
                                                        {L"DRIVERNAME", L"driver"},
                                                        {L"INSTALLSIZE", L"12.5MB"},
                                                        {L"SUPPORTEDOS", L"WINDOWS_7"},
                                                        {L"STREAMDISPLAYNAME", L"stream"},
                                                        {L"DISCOVERY", L"yes"},
                                                        {L"FORCEREINSTALL", L"True"}};
    BuildCatalogues();
    const MSI_APP app = Application(L"name");
    EXPECT_EQ(app.description, L"description");
    EXPECT_EQ(app.productVersion, L"1.2.3");
    EXPECT_EQ(app.deviceType, L"PRINTER");
    EXPECT_EQ(app.appType, L"NIMBOJET");
    EXPECT_EQ(app.startApp, L"a.exe;");
    EXPECT_EQ(app.secureCustomProperties, L"NETFRAMEWORK40");
    EXPECT_EQ(app.driverId, L"PS");
    EXPECT_EQ(app.driverName, L"driver");
    EXPECT_EQ(app.installSizeMb, 12.5);
    EXPECT_EQ(app.supportedOs, L"WINDOWS_7");
    EXPECT_EQ(app.streamDisplayName, L"stream");
    EXPECT_TRUE(app.usesDiscovery && app.forceReinstall);
    EXPECT_FALSE(app.isPrinterDriver);
    EXPECT_THAT(msi.Languages(), Each(L"1033"));
}

TEST_F(MsiInfoServiceTest, KeepsAScannerAndAFaxApart) {
    AddPackage(L"Applications", L"s.msi").properties[L"DRIVERID"] = L"SCAN";
    AddPackage(L"Applications", L"f.msi").properties[L"DRIVERID"] = L"Fax";
    BuildCatalogues();
    EXPECT_TRUE(Application(L"s").isScanDriver);
    EXPECT_TRUE(Application(L"f").isFaxDriver);
    EXPECT_FALSE(Application(L"f").isScanDriver);
}

TEST_F(MsiInfoServiceTest, EntersAPackageThatCannotBeRead) {
    tree.Add(L"Applications\\unreadable.msi");
    BuildCatalogues();
    ASSERT_THAT(ApplicationNames(), ElementsAre(L""));
    EXPECT_EQ(Applications().front().msiPath, ProgramTree::AsWritten(L"Applications\\unreadable.msi"));
}

struct InstalledState {
    bool installed;
    bool upToDate;
    bool upgradable;
    bool newer;
};

class InstalledStateTest : public CatalogueWorld, public testing::WithParamInterface<InstalledState> {};

TEST_P(InstalledStateTest, TellsWhetherSomethingNewerIsThere) {
    FakePackage& package = AddPackage(L"Applications", L"a.msi");
    package.installed = GetParam().installed;
    package.upToDate = GetParam().upToDate;
    package.upgradable = GetParam().upgradable;
    BuildCatalogues();
    EXPECT_EQ(Application(L"a").installed, GetParam().installed);
    EXPECT_EQ(Application(L"a").newerInstalled, GetParam().newer);
    EXPECT_FALSE(Application(L"a").isInstalled);
}

const InstalledState states[] = {{false, false, false, false},
                                 {true, false, false, true},
                                 {true, true, false, false},
                                 {true, false, true, false}};

INSTANTIATE_TEST_SUITE_P(States, InstalledStateTest, testing::ValuesIn(states));

TEST_F(MsiInfoServiceTest, OffersOnEverySystemWhatNamesOneAlone) {
    AddPackage(L"Optional\\x64", L"o.msi").properties[L"SUPPORTEDOS"] = L"WINDOWS_7";
    BuildCatalogues();
    EXPECT_THAT(ApplicationNames(), ElementsAre(L"o"));
}

TEST_F(MsiInfoServiceTest, LeavesOutAnOptionalPackageOfOtherSystems) {
    AddPackage(L"Optional\\x64", L"o.msi").properties[L"SUPPORTEDOS"] = L"WINDOWS_ME;WINDOWS_98";
    AddPackage(L"Applications", L"a.msi").properties[L"SUPPORTEDOS"] = L"WINDOWS_ME;WINDOWS_98";
    AddPackage(L"Common\\x64", L"c.msi").properties[L"SUPPORTEDOS"] = L"WINDOWS_ME;WINDOWS_98";
    BuildCatalogues();
    EXPECT_THAT(ApplicationNames(), ElementsAre(L"a", L"c"));
}

TEST_F(MsiInfoServiceTest, TakesTheDependentsThatThePackageNames) {
    AddPackage(L"Applications", L"a.msi").properties[L"DEPENDENTAPPS"] = L"x.msi y.msi z.msi";
    AddPackage(L"Dependents\\x64", L"x.msi");
    AddPackage(L"Dependents\\x86_x64", L"y.msi");
    AddPackage(L"Dependents\\x86_x64", L"z.msi");
    AddPackage(L"Dependents\\x64", L"other.msi");
    BuildCatalogues();
    const MSI_APP app = Application(L"a");
    ASSERT_EQ(app.dependents.size(), 3U);
    EXPECT_EQ(app.dependents[2].productName, L"x");
    EXPECT_FALSE(app.dependents[0].isSelected || app.dependents[0].isOptional ||
                 app.dependents[0].hasDependents);
    EXPECT_EQ(app.dependentNames,
              app.dependents[0].productName + L"," + app.dependents[1].productName + L" and x");
    EXPECT_TRUE(app.hasDependents);
}

TEST_F(MsiInfoServiceTest, HasNoDependentsWhereTheNamedOnesAreMissing) {
    AddPackage(L"Applications", L"a.msi").properties[L"DEPENDENTAPPS"] = L"missing.msi";
    BuildCatalogues();
    EXPECT_FALSE(Application(L"a").hasDependents);
    EXPECT_THAT(Application(L"a").dependents, IsEmpty());
}

TEST_F(MsiInfoServiceTest, MarksDependentsOfApplicationsOnly) {
    AddPackage(L"Common\\x64", L"c.msi").properties[L"DEPENDENTAPPS"] = L"x.msi";
    AddPackage(L"Dependents\\x64", L"x.msi");
    BuildCatalogues();
    EXPECT_EQ(Application(L"c").dependents.size(), 1U);
    EXPECT_FALSE(Application(L"c").hasDependents);
}

TEST_F(MsiInfoServiceTest, ReadsTheDependentsOfADependent) {
    AddPackage(L"Applications", L"a.msi").properties[L"DEPENDENTAPPS"] = L"x.msi";
    AddPackage(L"Dependents\\x64", L"x.msi").properties[L"DEPENDENTAPPS"] = L"y.msi";
    AddPackage(L"Dependents\\x64", L"y.msi");
    BuildCatalogues();
    EXPECT_EQ(Application(L"a").dependents.at(0).dependents.at(0).productName, L"y");
}

TEST_F(MsiInfoServiceTest, EndsWithAPackageThatDependsOnItself) {
    AddPackage(L"Applications", L"a.msi").properties[L"DEPENDENTAPPS"] = L"x.msi";
    AddPackage(L"Dependents\\x64", L"x.msi").properties[L"DEPENDENTAPPS"] = L"x.msi";
    BuildCatalogues();
    EXPECT_EQ(Application(L"a").dependents.size(), 1U);
    EXPECT_THAT(
        BasicLog(),
        ElementsAre(Record(L"ERROR", L"A package depends on itself and is left out as its own dependent: " +
                                         ProgramTree::AsWritten(L"Dependents\\x64\\x.msi"))));
}

TEST_F(MsiInfoServiceTest, EndsWithPackagesThatDependOnEachOther) {
    AddPackage(L"Applications", L"a.msi").properties[L"DEPENDENTAPPS"] = L"x.msi";
    AddPackage(L"Dependents\\x64", L"x.msi").properties[L"DEPENDENTAPPS"] = L"y.msi";
    AddPackage(L"Dependents\\x64", L"y.msi").properties[L"DEPENDENTAPPS"] = L"x.msi";
    BuildCatalogues();
    EXPECT_THAT(Application(L"a").dependents.at(0).dependents.at(0).dependents, IsEmpty());
}

TEST_F(MsiInfoServiceTest, ReadsPackagesThatAllNameEachOtherOncePerParent) {
    constexpr std::size_t count = 8;
    std::wstring all;
    for (std::size_t number = 1; number <= count; ++number) all += std::to_wstring(number) + L".msi ";
    AddPackage(L"Applications", L"a.msi").properties[L"DEPENDENTAPPS"] = all;
    for (std::size_t number = 1; number <= count; ++number) {
        const std::wstring name = std::to_wstring(number) + L".msi";
        std::wstring others = all;
        others.erase(others.find(name), name.size());
        AddPackage(L"Dependents\\x64", name).properties[L"DEPENDENTAPPS"] = others;
    }
    BuildCatalogues();
    EXPECT_EQ(Application(L"a").dependents.size(), count);
    EXPECT_EQ(msi.StateQuestions(), 1 + count + count * (count - 1));
    EXPECT_THAT(BasicLog(), IsEmpty());
}

TEST_F(MsiInfoServiceTest, BuildsAnewWithoutDoublingAnything) {
    AddPackage(L"Applications", L"a.msi");
    AddDriver(L"d.msi", L"MSIINFO");
    BuildCatalogues();
    BuildCatalogues();
    EXPECT_THAT(ApplicationNames(), ElementsAre(L"a"));
    EXPECT_THAT(DriverNames(), ElementsAre(L"d"));
}

TEST_F(MsiInfoServiceTest, BuildsNothingOnceItIsCancelled) {
    AddPackage(L"Applications", L"a.msi");
    MsiInfoService service(msi, Settings(), Texts(), AppRecords(), DriverRecords());
    service.Cancel();
    EXPECT_EQ(service.DoRun(), 0U);
    EXPECT_THAT(Applications(), IsEmpty());
}

TEST_F(MsiInfoServiceTest, FinishesABuildThatHasBegunAndTellsOfTheCancel) {
    AddPackage(L"Applications", L"a.msi");
    MsiInfoService service(msi, Settings(), Texts(), AppRecords(), DriverRecords());
    service.Cancel();
    EXPECT_EQ(service.buildDriverInfo(), 1602U);
    EXPECT_EQ(service.buildAppInfo(), 1602U);
    EXPECT_THAT(ApplicationNames(), ElementsAre(L"a"));
    EXPECT_THAT(AdvancedMessages(), Contains(L"MsiInfoService cancelling buildDriverInfo"));
    EXPECT_THAT(AdvancedMessages(), Contains(L"MsiInfoService cancelling buildAppInfo"));
}

TEST_F(MsiInfoServiceTest, SelectsByFilter) {
    AddPackage(L"Applications", L"a.msi");
    AddPackage(L"Common\\x64", L"c.msi");
    BuildCatalogues();
    const auto select = [](const wchar_t* filter) {
        std::wstring names;
        for (const MSI_APP& app : AppRecords().Select(filter)) names += app.productName;
        return names;
    };
    EXPECT_EQ(select(L""), L"ac");
    EXPECT_EQ(select(L"<ISOPTIONAL>true</ISOPTIONAL>"), L"c");
    EXPECT_EQ(select(L"<ISOPTIONAL>TRUE</ISOPTIONAL>"), L"a");
    EXPECT_EQ(select(L"<ISOPTIONAL>false</ISOPTIONAL><ISSELECTED>true</ISSELECTED>"), L"a");
    EXPECT_EQ(select(L"<UNKNOWN>1</UNKNOWN>"), L"");
}

}  // namespace
