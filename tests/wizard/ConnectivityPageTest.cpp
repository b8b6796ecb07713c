// How the printer is attached, and what follows from it.

#include "resources/resource.h"
#include "settings/TagDocument.h"
#include "tests/wizard/PageTest.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::UnorderedElementsAre;

namespace {

class ConnectivityPageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        Use(L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>");
    }

    void Use(const std::wstring& further) {
        UseSettings(
            L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA>"
            L"<WIN8_DRVTYPES>X;SCAN</WIN8_DRVTYPES>" +
            further);
    }

    void AddDriver(const std::wstring& identifier) {
        tree.Add({.path = L"Drivers\\x64\\" + identifier + L".msi",
                  .properties = Element(L"ProductName", identifier) + Element(L"DRIVERID", identifier)});
    }

    // The types of the ports in a command document, divided by commas.
    static std::wstring PortTypes(const std::wstring& command) {
        std::wstring types;
        for (const std::wstring& device : TagDocument::ListValues(command, L"DEVICE"))
            types += (types.empty() ? L"" : L",") + TagDocument::ValueOf(device, L"PORT_TYPE");
        return types;
    }

    void ExpectHidden() {
        wizard.Start();
        CloseOnFinishPage();
        EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Controller::Next, Moving from 4 to 5"));
        EXPECT_EQ(FinalSetting(L"HIDE_CONNECTIVITY"), L"true");
    }
};

TEST_F(ConnectivityPageTest, TakesTheNetworkWithoutAChoice) {
    tree.Add({.path = L"Applications\\a.msi"});
    const HWND network = StartOn(IDC_CONNECTIVITY_NETWORK);
    EXPECT_EQ(SendMessageW(network, BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(wizard.Focus(), network);
    EXPECT_FALSE(IsShown(IDC_HELP_BUTTON));
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Controller::Next, Moving from 4 to 5"));
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"", L"Selected Port Type: USB")));
}

TEST_F(ConnectivityPageTest, GoesStraightToTheInstallationOnUsb) {
    AddDriver(L"X");
    StartOn(IDC_CONNECTIVITY_NETWORK);
    wizard.Press(IDC_CONNECTIVITY_USB);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Selected Port Type: USB"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Controller::GoToSpecifiedDlg, Move to 7"));
    EXPECT_THAT(AdvancedLog(), Not(HasRecord(L"", L"Controller::Next, Moving from 4 to 5")));
    EXPECT_EQ(FinalSetting(L"USB"), L"true");
    EXPECT_EQ(FinalSetting(L"NIMBOJET"), L"false");
    EXPECT_EQ(FinalSetting(L"DISCOVERED_DEVICE"), L"false");
    EXPECT_EQ(FinalSetting(L"PORT_TYPE"), L"USB");
}

TEST_F(ConnectivityPageTest, TakesBackUsbForTheNetwork) {
    const HWND network = StartOn(IDC_CONNECTIVITY_NETWORK);
    wizard.Press(IDC_CONNECTIVITY_USB);
    EXPECT_TRUE(WaitUntil([&] { return SendMessageW(network, BM_GETCHECK, 0, 0) == BST_UNCHECKED; }));
    wizard.Press(IDC_CONNECTIVITY_NETWORK);
    EXPECT_TRUE(WaitUntil([&] { return SendMessageW(network, BM_GETCHECK, 0, 0) == BST_CHECKED; }));
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"", L"Selected Port Type: USB")));
}

TEST_F(ConnectivityPageTest, HandsTheUsbPortToTheDriver) {
    tree.SetUserSettings(L"<DEVICE><DRIVER_ID>X</DRIVER_ID></DEVICE>");
    AddDriver(L"X");
    StartOn(IDC_CONNECTIVITY_NETWORK);
    wizard.Press(IDC_CONNECTIVITY_USB);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(CommandOf(L"X.msi"), HasSubstr(L"<PORT_TYPE>USB</PORT_TYPE>"));
    EXPECT_THAT(Installs(), ElementsAre(L"X.msi"));
}

TEST_F(ConnectivityPageTest, PutsEveryPredefinedPrinterOnUsbWhateverPortItHad) {
    tree.SetUserSettings(
        L"<DEVICE><DRIVER_ID>X</DRIVER_ID><PORT_NAME>a</PORT_NAME>"
        L"<PORT_TYPE>Standard TCP/IP Port</PORT_TYPE></DEVICE>\r\n"
        L"<DEVICE><DRIVER_ID>Y</DRIVER_ID><PORT_NAME>b</PORT_NAME><PORT_TYPE>Local "
        L"Port</PORT_TYPE></DEVICE>\r\n"
        L"<DEVICE><DRIVER_ID>X</DRIVER_ID><PORT_NAME>c</PORT_NAME></DEVICE>\r\n");
    UseSettings(
        L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA><AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>"
        L"<WIN8_DRVTYPES>X;Y</WIN8_DRVTYPES>");
    for (const wchar_t* const identifier : {L"X", L"Y"}) AddDriver(identifier);
    StartOn(IDC_CONNECTIVITY_NETWORK);
    wizard.Press(IDC_CONNECTIVITY_USB);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_EQ(PortTypes(CommandOf(L"X.msi")), L"USB,USB");
    EXPECT_EQ(PortTypes(CommandOf(L"Y.msi")), L"USB");
}

TEST_F(ConnectivityPageTest, InstallsTheDefaultDriverAloneWhereThePackageSaysSo) {
    UseSettings(
        L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA><AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>"
        L"<WIN8_DRVTYPES>X;Y;Z</WIN8_DRVTYPES><WIN8_NO_COMM_DEFAULT>Y</WIN8_NO_COMM_DEFAULT>"
        L"<INSTALL_PICKED_DRIVER_ONLY>true</INSTALL_PICKED_DRIVER_ONLY>");
    for (const wchar_t* const identifier : {L"X", L"Y", L"Z", L"SCAN", L"Fax"}) AddDriver(identifier);
    StartOn(IDC_CONNECTIVITY_NETWORK);
    wizard.Press(IDC_CONNECTIVITY_USB);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(Installs(), UnorderedElementsAre(L"Y.msi", L"SCAN.msi", L"Fax.msi"));
}

TEST_F(ConnectivityPageTest, AddsTheScannersDriverOnUsb) {
    AddDriver(L"SCAN");
    StartOn(IDC_CONNECTIVITY_NETWORK);
    wizard.Press(IDC_CONNECTIVITY_USB);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(Installs(), ElementsAre(L"SCAN.msi"));
}

TEST_F(ConnectivityPageTest, IsNotShownWhereThePackageIsNotOfThatKind) {
    tree.Add({.path = L"Applications\\a.msi"});
    Use(L"<AMAZON_SUPPORTED>true</AMAZON_SUPPORTED>");
    ExpectHidden();
}

TEST_F(ConnectivityPageTest, IsNotShownThereEvenIfTheSettingsAskForIt) {
    tree.Add({.path = L"Applications\\a.msi"});
    Use(L"<HIDE_CONNECTIVITY>false</HIDE_CONNECTIVITY>");
    ExpectHidden();
}

}  // namespace
