#include "CommonLib/SystemText.h"
#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "install/InstallSelection.h"
#include "install/InstallService.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "tests/windows/world/InstallWorld.h"
#include "tests/windows/world/PatchedImport.h"
#include "wizard/Controller.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

using InstallServiceTest = InstallWorld;

TEST_F(InstallServiceTest, GoesOnWithoutAnyPackage) {
    EXPECT_EQ(Run(), 0U);
    EXPECT_THAT(threadExitCodes, ElementsAre(31U));
    EXPECT_THAT(StatusLines(), IsEmpty());
    EXPECT_THAT(BasicLog(), ElementsAre(Record(L"", L"Installing Applications"),
                                        Record(L"ERROR", L"There were no applications found to install")));
    EXPECT_EQ(controller.ThreadCount(), 0);
}

TEST_F(InstallServiceTest, RunsApplicationsBeforeDrivers) {
    AddDriver(L"driver.msi", L"RUNORDER");
    Add(L"application");
    EXPECT_EQ(Run(), 0U);
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install application.msi", L"install driver.msi"));
    EXPECT_THAT(StatusLines(), ElementsAre(L"application=0", L"driver=0"));
}

TEST_F(InstallServiceTest, LogsTheSettingsWithWhichItBegins) {
    Run();
    const auto messages = AdvancedMessages();
    const auto heading = std::find(messages.begin(), messages.end(), L"Final Install Settings Values");
    ASSERT_LT(heading - messages.begin(), static_cast<std::ptrdiff_t>(messages.size()) - 1);
    EXPECT_THAT(heading[1], testing::HasSubstr(L"<SILENT_INSTALL>true</SILENT_INSTALL>"));
}

TEST_F(InstallServiceTest, LeavesUnselectedPackagesAlone) {
    AddPackage(L"Common\\x64", L"common.msi");
    Add(L"application");
    Run();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install application.msi"));
}

TEST_F(InstallServiceTest, TakesTheOptionalPackagesAndNoDriverInAnOptionalRun) {
    AddPackage(L"Common\\x64", L"common.msi");
    Add(L"application");
    AddDriver(L"driver.msi", L"OPTIONALRUN");
    Settings().SetBool(Tag::OPTIONAL_INSTALL, true);
    BuildCatalogues();
    AppCatalogue::GetInstance().Update([](MSI_APP& app) { app.isSelected = true; });
    EXPECT_EQ(SelectApps(Settings(), AppRecords()).size(), 1U);
    EXPECT_EQ(SelectApps(Settings(), AppRecords()).front().productName, L"common");
    EXPECT_THAT(SelectDrivers(Settings(), DriverRecords()), IsEmpty());
}

TEST_F(InstallServiceTest, TakesEverythingSelectedInThePackagesSecondVariant) {
    AddPackage(L"Common\\x64", L"common.msi");
    Add(L"application");
    Settings().SetString(Tag::AMAZON_SUPPORTED, L"TRUE");
    BuildCatalogues();
    AppCatalogue::GetInstance().Update([](MSI_APP& app) { app.isSelected = true; });
    EXPECT_EQ(SelectApps(Settings(), AppRecords()).size(), 2U);
}

TEST_F(InstallServiceTest, HandsTheCommandDocumentOver) {
    AddTexts("<LANGUAGE_ID>1031</LANGUAGE_ID>");
    Settings().SetStrings({{Tag::PRINTER_NAME, L"Loom"},
                           {Tag::INFOCENTER_SHORTCUT, L"Help"},
                           {Tag::EXACT_INFOCENTER_LINK, L"http://help"}});
    Add(L"a");
    Run();
    const std::wstring target = ExpandEnvironment(L"%ProgramFiles%\\Maker\\");
    const std::wstring command = msi.CommandOf(L"a.msi");
    EXPECT_THAT(command, testing::StartsWith(L"<PRINTER_INFO><DEVICE>"));
    EXPECT_THAT(command,
                testing::EndsWith(L"</PRINTER_INFO><TARGET_DIR>" + target +
                                  L"</TARGET_DIR><LANGUAGEID>1031</LANGUAGEID><DEVICEFRIENDLYNAME>Loom"
                                  L"</DEVICEFRIENDLYNAME><INFOCENTER_SHORTCUT>Help</INFOCENTER_SHORTCUT>"
                                  L"<INFOCENTER_LINK>http://help</INFOCENTER_LINK>"));
    EXPECT_EQ(Settings().GetString(Tag::TARGET_DIR), target);
}

TEST_F(InstallServiceTest, InstallsIntoTheFolderOfPrinterWithoutAVendor) {
    Settings().SetString(Tag::OEM, L"");
    Settings().SetString(Tag::TARGET_DIR, L"what stood here before");
    Add(L"a");
    Run();
    EXPECT_EQ(Settings().GetString(Tag::TARGET_DIR), ExpandEnvironment(L"%ProgramFiles%\\Printer\\"));
}

TEST_F(InstallServiceTest, ReportsANewerProductAndDoesNotTouchIt) {
    FakePackage& package = Add(L"a");
    package.installed = true;
    Run();
    EXPECT_THAT(msi.Calls(), IsEmpty());
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=0"));
    EXPECT_TRUE(Application(L"a").isInstalled);
    EXPECT_THAT(
        BasicLog(),
        Contains(Record(L"",
                        L"A newer version of a is already installed. To install an older version of the "
                        L"product, please remove the previously installed version first.")));
}

TEST_F(InstallServiceTest, RunsAParentThatIsNewerOnTheSystemAllTheSame) {
    Add(L"a").installed = true;
    AddDependent(L"a", L"d");
    Run();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install a.msi", L"install d.msi"));
    EXPECT_THAT(BasicMessages(), Contains(testing::StartsWith(L"A newer version of a ")));
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=0", L"d=0"));
}

TEST_F(InstallServiceTest, PassesOverWhatIsUpToDateWithoutATrace) {
    FakePackage& package = Add(L"a");
    package.installed = true;
    package.upToDate = true;
    package.properties[L"STARTAPP"] = L"a.exe;";
    Add(L"b");
    Run();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install b.msi"));
    EXPECT_THAT(StatusLines(), ElementsAre(L"b=0"));
    // Its programs are started in the end all the same.
    EXPECT_EQ(Settings().GetStartApp(), L"a.exe;");
}

TEST_F(InstallServiceTest, PassesOverWhatAnEarlierPackageHasBroughtAlong) {
    Add(L"a").duringInstall = [&] {
        msi.packages[L"b.msi"].installed = true;
        msi.packages[L"b.msi"].upToDate = true;
    };
    Add(L"b");
    Run();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install a.msi"));
}

TEST_F(InstallServiceTest, CountsAnUpgradeAsUpdated) {
    FakePackage& package = Add(L"a");
    package.installed = true;
    package.upgradable = true;
    Run();
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=3"));
    EXPECT_EQ(TagDocument::ValueOf(msi.CommandOf(L"a.msi"), L"TAG_REINSTALL"), L"");
}

TEST_F(InstallServiceTest, AsksForAReinstallOfAMinorUpgrade) {
    FakePackage& package = Add(L"a");
    package.installed = true;
    package.upgradable = true;
    package.minorUpgrade = true;
    Run();
    EXPECT_THAT(msi.CommandOf(L"a.msi"), testing::EndsWith(L"<TAG_REINSTALL>true</TAG_REINSTALL>"));
    EXPECT_THAT(AdvancedMessages(),
                Contains(L"This is a Minor upgrade. Reinstall mode will be added into the command line."));
}

TEST_F(InstallServiceTest, LeavesAForcedReinstallToThePackage) {
    FakePackage& package = Add(L"a");
    package.installed = true;
    package.upToDate = true;
    package.minorUpgrade = true;
    package.properties[L"FORCEREINSTALL"] = L"TRUE";
    Run();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install a.msi"));
    EXPECT_THAT(msi.CommandOf(L"a.msi"), Not(testing::HasSubstr(L"TAG_REINSTALL")));
    EXPECT_THAT(AdvancedMessages(),
                Contains(L"This is a ForceReinstall required. Allowing component msi to handle reinstall."));
}

struct ReturnCode {
    std::uint32_t code;
    std::wstring status;
    std::wstring level;
    std::wstring message;
    bool asksForRestart;
    bool stopsTheRun;
};

class ReturnCodeTest : public InstallWorld, public testing::WithParamInterface<ReturnCode> {};

TEST_P(ReturnCodeTest, DecidesTheStatus) {
    Add(L"a").installCode = GetParam().code;
    Add(L"b");
    Run();
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=" + GetParam().status, L"b=0"));
    EXPECT_EQ(Settings().GetBool(Tag::REBOOT), GetParam().asksForRestart);
    EXPECT_EQ(HasStopped(), GetParam().stopsTheRun);
    EXPECT_THAT(BasicLog(), Contains(Record(GetParam().level, GetParam().message)));
    EXPECT_EQ(static_cast<int>(Application(L"a").status), std::stoi(GetParam().status));
}

constexpr wchar_t began[] = L"Installing Applications";
constexpr wchar_t userCancelled[] = L"MSI Installer returned user canceled.";
constexpr wchar_t restart[] = L"MSI Installer returned reboot requires.";
constexpr wchar_t failure[] = L"MSI Installer returned an error";

const ReturnCode returnCodes[] = {
    {0, L"0", L"", began, false, false},
    {1602, L"2", L"SUCCESS", userCancelled, false, false},
    {1641, L"0", L"SUCCESS", restart, true, false},
    {3010, L"0", L"SUCCESS", restart, true, false},
    {112, L"1", L"ERROR", failure, false, true},
    {1603, L"1", L"ERROR", failure, false, true},
    {1618, L"1", L"ERROR", failure, false, true},
    {1622, L"1", L"ERROR", failure, false, false},
    {1623, L"1", L"ERROR", failure, false, false},
    {1640, L"1", L"ERROR", failure, false, true},
};

INSTANTIATE_TEST_SUITE_P(Codes, ReturnCodeTest, testing::ValuesIn(returnCodes),
                         [](const auto& code) { return std::to_string(code.param.code); });

TEST_F(InstallServiceTest, CountsAnUpgradeThatWantsARestartAsUpdated) {
    FakePackage& package = Add(L"a");
    package.installed = true;
    package.upgradable = true;
    package.installCode = 3010;
    Run();
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=3"));
    EXPECT_FALSE(Application(L"a").isInstalled);
}

TEST_F(InstallServiceTest, CountsAScannerThatFailsOnAnOldSystemAsNotSupported) {
    const PatchedImport oldSystem(
        "VerifyVersionInfoW", +[](LPOSVERSIONINFOEXW, DWORD, DWORDLONG) -> BOOL { return FALSE; });
    AddPackage(L"Drivers\\x64", L"scan.msi").properties[L"DRIVERID"] = L"SCAN";
    msi.packages[L"scan.msi"].installCode = 1603;
    Run();
    EXPECT_THAT(StatusLines(), ElementsAre(L"scan=4"));
    EXPECT_FALSE(HasStopped());
}

TEST_F(InstallServiceTest, CountsAScannerThatFailsAsFailed) {
    AddPackage(L"Drivers\\x64", L"scan.msi").properties[L"DRIVERID"] = L"SCAN";
    msi.packages[L"scan.msi"].installCode = 1603;
    Run();
    EXPECT_THAT(StatusLines(), ElementsAre(L"scan=1"));
    EXPECT_TRUE(HasStopped());
}

TEST_F(InstallServiceTest, RunsTheDependentsInsideTheirParentsTurn) {
    Add(L"a");
    AddDependent(L"a", L"d1");
    AddDependent(L"a", L"d2");
    Add(L"b");
    Run();
    EXPECT_THAT(msi.Calls(),
                ElementsAre(L"install a.msi", L"install d1.msi", L"install d2.msi", L"install b.msi"));
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=0", L"d1=0", L"d2=0", L"b=0"));
}

TEST_F(InstallServiceTest, LeavesTheDependentsOfAParentThatWantsARestart) {
    Add(L"a").installCode = 3010;
    AddDependent(L"a", L"d");
    Run();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install a.msi"));
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=0"));
    EXPECT_TRUE(Settings().GetBool(Tag::REBOOT));
}

TEST_F(InstallServiceTest, CountsAParentAsFailedWithItsDependentAndKeepsIt) {
    Add(L"a");
    AddDependent(L"a", L"d").installCode = 1603;
    Run();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install a.msi", L"install d.msi"));
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=1", L"d=1"));
    EXPECT_TRUE(Application(L"a").isInstalled);
}

TEST_F(InstallServiceTest, RemovesAParentWithItsDependentInAnOptionalRun) {
    AddPackage(L"Common\\x64", L"a.msi");
    AddDependent(L"a", L"d").installCode = 1603;
    msi.packages[L"a.msi"].uninstallCode = 1605;
    Settings().SetBool(Tag::OPTIONAL_INSTALL, true);
    BuildCatalogues();
    AppCatalogue::GetInstance().Update([](MSI_APP& app) { app.isSelected = app.hasDependents = true; });
    const ThreadWatch threads;
    service.DoRun();
    ThreadWatch::WaitForAll();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install a.msi", L"install d.msi", L"uninstall a.msi"));
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=1", L"d=1"));
    EXPECT_THAT(BasicLog(), Contains(Record(L"ERROR", L"Parent msi rollback failed")));
    EXPECT_FALSE(HasStopped());
}

TEST_F(InstallServiceTest, GoesOnAfterAnErrorInAnOptionalRun) {
    AddPackage(L"Common\\x64", L"a.msi").installCode = 1603;
    AddPackage(L"Common\\x64", L"b.msi");
    Settings().SetBool(Tag::OPTIONAL_INSTALL, true);
    BuildCatalogues();
    AppCatalogue::GetInstance().Update([](MSI_APP& app) { app.isSelected = true; });
    const ThreadWatch threads;
    service.DoRun();
    ThreadWatch::WaitForAll();
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install a.msi", L"install b.msi"));
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=1", L"b=0"));
    EXPECT_FALSE(HasStopped());
}

TEST_F(InstallServiceTest, GivesPackagesOfOneNameOneLineAndTheLaterStatus) {
    Add(L"a").properties[L"ProductName"] = L"same";
    FakePackage& second = Add(L"b");
    second.properties[L"ProductName"] = L"same";
    second.installCode = 1602;
    Run();
    EXPECT_THAT(StatusLines(), ElementsAre(L"same=2"));
    EXPECT_THAT(Applications().front().status, PackageStatus::Done);
    EXPECT_THAT(Applications().back().status, PackageStatus::Cancelled);
}

TEST_F(InstallServiceTest, NotesTheOutcomeInTheRecordsOfDriversToo) {
    AddDriver(L"d.msi", L"OUTCOME");
    Run();
    EXPECT_TRUE(DriverInfo::GetInstance().GetDriver(L"OUTCOME").isInstalled);
    EXPECT_EQ(DriverInfo::GetInstance().GetDriver(L"OUTCOME").status, PackageStatus::Done);
}

TEST_F(InstallServiceTest, CollectsTheProgramsOfAllPackages) {
    Add(L"a").properties[L"STARTAPP"] = L"a.exe;";
    Add(L"b").properties[L"STARTAPP"] = L"b.exe;";
    msi.packages[L"b.msi"].installCode = 1622;
    Run();
    EXPECT_EQ(Settings().GetStartApp(), L"a.exe;b.exe;");
}

TEST_F(InstallServiceTest, BeginsASecondRunWithAnEmptyList) {
    Add(L"a");
    Run();
    Run();
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=0"));
    EXPECT_THAT(msi.Calls(), ElementsAre(L"install a.msi", L"install a.msi"));
}

TEST_F(InstallServiceTest, FailsARunThatAnExceptionEnds) {
    Add(L"a").duringInstall = [] { throw 7; };
    EXPECT_EQ(Run(), 0U);
    EXPECT_EQ(Settings().GetString(Tag::INSTALL_STATUS), L"FAILED");
    EXPECT_EQ(controller.ThreadCount(), 0);
    EXPECT_FALSE(service.IsAtWork());
}

std::uintptr_t NoThread(void*, unsigned, unsigned(__stdcall*)(void*), void*, unsigned, unsigned*) {
    return 0;
}

TEST_F(InstallServiceTest, FailsARunThatGetsNoThread) {
    Settings().SetBool(Tag::SILENT_INSTALL, false);
    Add(L"a");
    BuildCatalogues();
    const PatchedImport noThread("_beginthreadex", &NoThread);
    EXPECT_EQ(service.DoRun(), 1603U);
    EXPECT_EQ(Settings().GetString(Tag::INSTALL_STATUS), L"FAILED");
    EXPECT_THAT(BasicLog(), Contains(Record(L"ERROR", L"The install thread could not be started")));
    EXPECT_FALSE(service.IsAtWork());
    EXPECT_EQ(controller.ThreadCount(), 0);
}

}  // namespace
