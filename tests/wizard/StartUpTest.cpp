// Whether the program may run at all, and what it takes from its command line.

#include <windows.h>

#include "CommonLib/SingleInstance.h"
#include "framework/Handles.h"
#include "tests/wizard/WizardTest.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class StartUpTest : public WizardTest {
protected:
    void SetUp() override {
        WizardTest::SetUp();
        tree.Add({.path = L"Applications\\a.msi"});
    }

    // A silent package with one printer, whose settings leave the discovery on.
    void AddPrinterForTheCommandLine() {
        tree.SetSettings(L"<SILENT_INSTALL>true</SILENT_INSTALL><WIN8_DRVTYPES>X</WIN8_DRVTYPES>");
        tree.SetUserSettings(L"<DEVICE><DRIVER_ID>X</DRIVER_ID></DEVICE>");
        tree.Add({.path = L"Drivers\\x64\\x.msi",
                  .properties = L"<ProductName>X</ProductName><DRIVERID>X</DRIVERID>"});
    }
};

TEST_F(StartUpTest, EndsWithoutAWordWhenTheDefaultSettingsAreMissing) {
    tree.RemoveFile(L"Setup\\defaultInstallSettings.xml");
    Run();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(Calls(), IsEmpty());
    EXPECT_THAT(BasicLog(), IsEmpty());
}

TEST_F(StartUpTest, TellsOfMissingDefaultSettingsInTheAdvancedLogOfNoVendor) {
    tree.RemoveFile(L"Setup\\defaultInstallSettings.xml");
    ExpectVendor(L"Printer");
    const DWORD on = 1;
    RegSetKeyValueW(HKEY_CURRENT_USER, L"SOFTWARE\\Installer\\Logger", L"StartLog", REG_DWORD, &on,
                    sizeof(on));
    Run();
    EXPECT_THAT(
        AdvancedLog(),
        HasRecord(L"ERROR", L"InstallSettings::ReadFromFile(), Loading InstallSettings file failed! " +
                                tree.ProgramFolder().wstring() + L"\\..\\defaultInstallSettings.xml"));
    RegDeleteTreeW(HKEY_CURRENT_USER, L"SOFTWARE\\Installer");
}

TEST_F(StartUpTest, RefusesAUserWhoIsNoAdministrator) {
    wizard.StartRestricted();
    const MessageBoxOnScreen box = wizard.Answer(IDOK);
    wizard.WaitForEnd();
    EXPECT_EQ(box.title, L"No permission");
    EXPECT_EQ(box.text, L"You may not do this.");
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(BasicMessages(L"ERROR"), IsEmpty());
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(StartUpTest, RefusesASecondCopyAlsoInASilentRun) {
    WizardDriver second{tree.ProgramFolder() / L"Kestrune.exe"};
    tree.SetSettings(Settings::shownFromProgress);
    wizard.Start();
    EXPECT_TRUE(WaitForMessage(L"Controller::Next, Moving from 7 to 8"));
    tree.SetSettings(Settings::silent);
    second.Start();
    const MessageBoxOnScreen box = second.Answer(IDOK);
    second.WaitForEnd();
    EXPECT_EQ(box.title, L"Already running");
    EXPECT_EQ(box.text, L"Another copy is running.");
    EXPECT_EQ(second.ExitCode(), 0U);
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"There is another instance of Kestrune running"));
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
}

TEST_F(StartUpTest, AsksForTheRightsBeforeItLooksForAnotherCopy) {
    WizardDriver second{tree.ProgramFolder() / L"Kestrune.exe"};
    tree.SetSettings(Settings::shownFromProgress);
    wizard.Start();
    EXPECT_TRUE(WaitForMessage(L"Controller::Next, Moving from 7 to 8"));
    second.StartRestricted();
    EXPECT_EQ(second.Answer(IDOK).title, L"No permission");
    second.WaitForEnd();
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"ERROR", L"There is another instance of Kestrune running")));
}

// What has the name is no lock, so there is no other copy, and this one cannot keep later ones out.
TEST_F(StartUpTest, StartsWhereSomethingElseHasTheNameOfItsLock) {
    const KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, singleInstanceName));
    Run();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
    EXPECT_THAT(BasicMessages(L"ERROR"),
                ElementsAre(L"Exception in CKestruneApp::InitInstance error code = 6",
                            L"Exception in CKestruneApp::InitInstance error code = 6"));
}

TEST_F(StartUpTest, StartsAgainAfterACopyWasKilled) {
    tree.SetSettings(Settings::shownFromProgress);
    wizard.Start();
    EXPECT_TRUE(WaitForMessage(L"Controller::Next, Moving from 7 to 8"));
    wizard.Kill();
    tree.SetSettings(Settings::silent);
    Run();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi", L"a.msi"));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"End of silent mode install"));
}

TEST_F(StartUpTest, EndsASilentRunThatHasNeitherAPrinterNorTheDiscoveryOff) {
    tree.SetSettings(L"<SILENT_INSTALL>true</SILENT_INSTALL>");
    Run();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(Calls(L"MsiGetProperties"), testing::SizeIs(1));
    EXPECT_THAT(Installs(), IsEmpty());
    EXPECT_THAT(BasicMessages(L"").back(), L"Starting Installer");
}

TEST_F(StartUpTest, TakesThePrinterFromTheCommandLine) {
    AddPrinterForTheCommandLine();
    Run(L"-ip=10.0.0.5");
    EXPECT_EQ(FinalSetting(L"HIDE_DISCOVERY"), L"true");
    EXPECT_THAT(CommandOf(L"x.msi"),
                HasSubstr(L"<PORT_TYPE>Standard TCP/IP Port</PORT_TYPE><HOST_NAME>10.0.0.5</HOST_NAME>"
                          L"<IPADDRESS>10.0.0.5</IPADDRESS><PORT_NAME>10.0.0.5</PORT_NAME>"));
}

TEST_F(StartUpTest, TakesThePortBesideThePrinterFromTheCommandLine) {
    AddPrinterForTheCommandLine();
    Run(L"/ip=10.0.0.5 /p=Lab");
    EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(L"<HOST_NAME>10.0.0.5</HOST_NAME>"));
    EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(L"<PORT_NAME>Lab</PORT_NAME>"));
}

TEST_F(StartUpTest, HandsThePrinterOfTheCommandLineToADriverWithoutPredefinedDevices) {
    AddPrinterForTheCommandLine();
    tree.RemoveFile(L"Setup\\PackageUserSettings.xml");
    Run(L"-ip=10.0.0.5");
    EXPECT_THAT(CommandOf(L"x.msi"),
                HasSubstr(L"<PORT_NAME>10.0.0.5</PORT_NAME><HOST_NAME>10.0.0.5</HOST_NAME>"
                          L"<PORT_TYPE>Standard TCP/IP Port</PORT_TYPE>"));
    EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(L"<ADD_PORT>true</ADD_PORT>"));
    EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(L"<IPADDRESS>10.0.0.5</IPADDRESS></DEVICE>"));
}

TEST_F(StartUpTest, LeavesThePrinterOfTheCommandLineOutWhenTheSettingsHideTheDiscovery) {
    AddPrinterForTheCommandLine();
    tree.SetSettings(std::wstring(Settings::silent) + L"<WIN8_DRVTYPES>X</WIN8_DRVTYPES>");
    Run(L"-ip=10.0.0.5");
    EXPECT_THAT(CommandOf(L"x.msi"), Not(HasSubstr(L"10.0.0.5")));
}

// A command line and the address that the program reads from it; an empty one ends the run.
struct AddressCase {
    const char* name;
    const wchar_t* arguments;
    const wchar_t* address;
};

void PrintTo(const AddressCase& given, std::ostream* stream) {
    *stream << given.name;
}

class AddressArgumentTest : public StartUpTest, public testing::WithParamInterface<AddressCase> {};

TEST_P(AddressArgumentTest, IsReadByTheRules) {
    AddPrinterForTheCommandLine();
    Run(GetParam().arguments);
    const std::wstring address = GetParam().address;
    if (address.empty()) {
        EXPECT_THAT(Installs(), IsEmpty());
    } else {
        EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(Element(L"IPADDRESS", address)));
    }
}

INSTANTIATE_TEST_SUITE_P(
    CommandLines, AddressArgumentTest,
    testing::Values(AddressCase{"Plain", L"-ip=a.b", L"a.b"},
                    AddressCase{"FurtherEqualsSignsBelongToTheValue", L"-ip=a=b", L"a=b"},
                    AddressCase{"TheLastOfTwoStands", L"-ip=1.1.1.1 -ip=2.2.2.2", L"2.2.2.2"},
                    AddressCase{"NoValueLeavesAnEarlierOne", L"-ip=1.1.1.1 -ip", L"1.1.1.1"},
                    AddressCase{"NamesAreCaseSensitive", L"-IP=10.0.0.5", L""},
                    AddressCase{"NamesAreComparedWhole", L"-ipx=10.0.0.5", L""},
                    AddressCase{"AWordWithoutASwitchIsIgnored", L"ip=1.2.3.4", L""},
                    AddressCase{"AnEmptyValueIsNone", L"-ip=", L""},
                    AddressCase{"NoValueIsNone", L"-ip", L""}),
    [](const testing::TestParamInfo<AddressCase>& given) { return std::string(given.param.name); });

TEST_F(StartUpTest, CopiesTheLogOfAFailedSilentRunIntoTheNamedFolder) {
    tree.Add({.path = L"Applications\\net.msi",
              .properties = L"<ProductName>Net</ProductName>"
                            L"<SecureCustomProperties>NETFRAMEWORK40</SecureCustomProperties>"});
    std::filesystem::create_directories(tree.Root() / L"results");
    Run(L"-pkgdir=\"" + (tree.Root() / L"results").wstring() + L"\"");
    EXPECT_THAT(ReadLog((tree.Root() / L"results" / L"Basic.log").wstring(), LogForm::Basic),
                HasRecordWith(L"", L"!!!! Install .Net 4.0 Framework is required to run this package."));
    EXPECT_FALSE(std::filesystem::exists(tree.ProgramFolder() / L"Basic.log"));
}

}  // namespace
