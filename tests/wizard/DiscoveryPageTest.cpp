// The page of the discovered devices, as a user walks through it.

#include <windows.h>

#include <commctrl.h>

#include "resources/resource.h"
#include "tests/fakes/NpaPacket.h"
#include "tests/wizard/NetworkPageTest.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::UnorderedElementsAre;

namespace {

class DiscoveryPageTest : public NetworkPageTest {
protected:
    // Picks the device of the four that prints in colour, where the proposed one does not.
    void InstallForTheSecondOfFour() {
        AddDriver(L"MONO1");
        AddDriver(L"COLOR1");
        AddFourDevices();
        Script({L"reply", L"10.0.0.2:color;10.0.0.4:mono;"});
        StartWithRows(4);
        SelectRow(1);
        wizard.Press(IDOK);
        CloseOnFinishPage();
    }
};

TEST_F(DiscoveryPageTest, InstallsTheDriverForThePrinterThatWasPicked) {
    InstallForTheSecondOfFour();
    // By design: drivers are selected until somebody says otherwise, and the page only adds to them.
    EXPECT_THAT(Installs(), UnorderedElementsAre(L"COLOR1.msi", L"MONO1.msi"));
    EXPECT_THAT(CommandOf(L"COLOR1.msi"), HasSubstr(L"<PORT_NAME>host2</PORT_NAME>"));
    EXPECT_THAT(CommandOf(L"COLOR1.msi"), HasSubstr(L"<HOST_NAME>host2</HOST_NAME>"));
    EXPECT_THAT(CommandOf(L"COLOR1.msi"), HasSubstr(L"<PORT_TYPE>Standard TCP/IP Port</PORT_TYPE>"));
    EXPECT_THAT(CommandOf(L"COLOR1.msi"), HasSubstr(L"<IPADDRESS>10.0.0.2</IPADDRESS>"));
    EXPECT_THAT(CommandOf(L"COLOR1.msi"), StartsWith(L"<PRINTER_INFO><DEVICE>"));
    EXPECT_THAT(BasicMessages(L""),
                Contains(L"Selected driver: " + ProgramPathOf(L"Drivers\\x64\\COLOR1.msi")));
    EXPECT_EQ(FinalSetting(L"DISCOVERED_DEVICE"), L"true");
    EXPECT_EQ(FinalSetting(L"PRINTER_NAME"), L"B");
    EXPECT_EQ(FinalSetting(L"DRIVER_MODEL_NAME"), L"Model 2");
    EXPECT_EQ(FinalSetting(L"DIALOG_ADD_PORT"), L"false");
}

TEST_F(DiscoveryPageTest, InstallsThePickedDriverAloneWhereThePackageSaysSo) {
    UseDiscovery(L"<INSTALL_PICKED_DRIVER_ONLY>true</INSTALL_PICKED_DRIVER_ONLY>");
    InstallForTheSecondOfFour();
    EXPECT_THAT(Installs(), ElementsAre(L"COLOR1.msi"));
}

TEST_F(DiscoveryPageTest, ProposesTheFourthRowWithItsDriver) {
    AddDriver(L"MONO1");
    AddDriver(L"COLOR1");
    AddFourDevices();
    Script({L"reply", L"10.0.0.4:color;"});
    StartWithRows(4);
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    EXPECT_EQ(SelectedRow(), 3);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(BasicLog(),
                HasRecord(L"", L"Selected driver: " + ProgramPathOf(L"Drivers\\x64\\COLOR1.msi")));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Selected Printer Name: D"));
}

TEST_F(DiscoveryPageTest, TakesThePortOfTheLastOfASeriesWhicheverRowWasPicked) {
    AddDriver(L"NONE1");
    AddDevice(L"10.0.0.1", L"Twin", Element(L"IPNAME", L"first"));
    AddDevice(L"10.0.0.2", L"Twin", Element(L"IPNAME", L"second"));
    StartWithRows(2);
    SelectRow(0);
    EXPECT_EQ(Column(1).front(), L"10.0.0.1");
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(CommandOf(L"NONE1.msi"), HasSubstr(L"<HOST_NAME>second</HOST_NAME>"));
}

TEST_F(DiscoveryPageTest, SaysWhatWillBeInstalledForADeviceWithFax) {
    AddDevice(L"10.0.0.1", L"A", Element(L"aioModelName", L"x"));
    Script({L"device", L"10.0.0.1", L"npa", Npa::Hex(Npa::FaxReply(1))});
    AddDevice(L"10.0.0.2", L"B");
    StartWithRows(2);
    SelectRow(0);
    EXPECT_EQ(TextOf(IDC_DISCOVERY_SELECTION_TEXT), L"DOWNLOAD_INSTALL_TITLE");
    SelectRow(1);
    EXPECT_EQ(TextOf(IDC_DISCOVERY_SELECTION_TEXT), L"SELECT_PRINT_TEXT");
}

TEST_F(DiscoveryPageTest, SearchesAgainByTheButton) {
    AddFourDevices();
    Script({L"run"});
    AddDevice(L"10.0.0.9", L"New");
    StartWithRows(4);
    wizard.Press(IDC_DISCOVERY_REFRESH);
    EXPECT_TRUE(WaitForRows(1));
    EXPECT_THAT(Column(0), ElementsAre(L"New"));
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(DiscoveryPageTest, SearchesAgainByTheKey) {
    AddFourDevices();
    Script({L"run"});
    AddDevice(L"10.0.0.9", L"New");
    StartWithRows(4);
    wizard.PressKey(VK_F5);
    EXPECT_TRUE(WaitForRows(1));
    EXPECT_THAT(Searches(), ElementsAre(L"", L""));
}

TEST_F(DiscoveryPageTest, SaysThatItSearchesAndThatNothingWasFound) {
    Script({L"discover", L"untilFile", Gate(L"gate")});
    StartOn(IDC_DISCOVERY_LIST);
    EXPECT_TRUE(WaitForHeading(L"DISCOVERED_LIST_COLUMN_SEARCHING"));
    EXPECT_FALSE(IsEnabled(IDOK));
    Open(L"gate");
    EXPECT_TRUE(WaitForHeading(L"NO_PRINTER_FOUND"));
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_TRUE(IsEnabled(IDC_DISCOVERY_REFRESH) && IsEnabled(IDC_DISCOVERY_MODIFY_SEARCH) &&
                IsEnabled(IDC_DISCOVERY_ADD_PORT));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"No printer found."));
}

TEST_F(DiscoveryPageTest, SortsByEachColumnAndBack) {
    AddDevice(L"10.0.0.10", L"B", Element(L"COLORTYPE", L"mono"));
    AddDevice(L"10.0.0.9", L"C", Element(L"COLORTYPE", L"color"));
    AddDevice(L"10.0.0.100", L"A");
    StartWithRows(3);
    EXPECT_THAT(Column(0), ElementsAre(L"A", L"B", L"C"));
    ClickHeading(1);
    EXPECT_THAT(Column(1), ElementsAre(L"10.0.0.9", L"10.0.0.10", L"10.0.0.100"));
    ClickHeading(1);
    EXPECT_THAT(Column(1), ElementsAre(L"10.0.0.100", L"10.0.0.10", L"10.0.0.9"));
    ClickHeading(2);
    EXPECT_THAT(Column(2), ElementsAre(L"", L"COLOR", L"MONO"));
    ClickHeading(0);
    EXPECT_THAT(Column(0), ElementsAre(L"A", L"B", L"C"));
    ClickHeading(0);
    EXPECT_THAT(Column(0), ElementsAre(L"C", L"B", L"A"));
}

TEST_F(DiscoveryPageTest, ReplacesTheListUnderTheUserWhenALaterSearchEnds) {
    AddFourDevices();
    Script({L"discover", L"untilFile", Gate(L"first")});
    Script({L"run"});
    Script({L"discover", L"untilFile", Gate(L"second")});
    AddDevice(L"10.0.0.9", L"New");
    StartOn(IDC_DISCOVERY_LIST);
    wizard.Press(IDC_DISCOVERY_REFRESH);
    Open(L"first");
    EXPECT_TRUE(WaitForRows(4));
    SelectRow(2);
    Open(L"second");
    EXPECT_TRUE(WaitForRows(1));
    EXPECT_EQ(SelectedRow(), -1);
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(DiscoveryPageTest, WalksPastWithUsbAndTakesTheDefaultDriver) {
    AddDriver(L"MONO1");
    AddDriver(L"NONE1");
    StartOn(IDC_DISCOVERY_USB);
    EXPECT_TRUE(WaitForHeading(L"NO_PRINTER_FOUND"));
    wizard.Press(IDC_DISCOVERY_USB);
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    EXPECT_FALSE(IsEnabled(IDC_DISCOVERY_LIST) || IsEnabled(IDC_DISCOVERY_REFRESH) ||
                 IsEnabled(IDC_DISCOVERY_MODIFY_SEARCH) || IsEnabled(IDC_DISCOVERY_ADD_PORT));
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Selected driver: " + ProgramPathOf(L"Drivers\\x64\\NONE1.msi")));
    // The radio button only opens the way; it leaves no mark in the settings.
    EXPECT_EQ(FinalSetting(L"USB"), L"false");
    EXPECT_EQ(FinalSetting(L"PORT_TYPE"), L"");
}

TEST_F(DiscoveryPageTest, TakesTheSelectedRowWhateverRadioButtonWasClicked) {
    AddDriver(L"NONE1");
    AddFourDevices();
    StartWithRows(4);
    wizard.Press(IDC_DISCOVERY_USB);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(CommandOf(L"NONE1.msi"), HasSubstr(L"<HOST_NAME>host4</HOST_NAME>"));
}

TEST_F(DiscoveryPageTest, ShowsTheSameRowsToWhoComesBack) {
    AddFourDevices();
    StartWithRows(4);
    wizard.Press(IDC_DISCOVERY_ADD_PORT);
    wizard.WaitForControl(IDC_ADD_PORT_BACK);
    wizard.Press(IDC_ADD_PORT_BACK);
    wizard.WaitForControl(IDC_DISCOVERY_LIST);
    EXPECT_EQ(Column(0).size(), 4u);
    EXPECT_EQ(SelectedRow(), 3);
    EXPECT_EQ(Searches().size(), 1u);
}

TEST_F(DiscoveryPageTest, EndsBehindASearchThatTakesLong) {
    Script({L"discover", L"untilFile", Gate(L"gate")});
    AddFourDevices();
    StartOn(IDC_DISCOVERY_LIST);
    EXPECT_TRUE(WaitForSearches(1));
    wizard.Press(IDCANCEL);
    AnswerCancel(IDYES);
    EXPECT_TRUE(WaitUntil(
        [this] { return testing::Value(BasicLog(), HasRecord(L"", L"Installation is Finished")); }));
    EXPECT_TRUE(wizard.IsRunning());
    Open(L"gate");
    wizard.WaitForEnd();
    EXPECT_THAT(NetworkCalls(L"EnumerateW"), IsEmpty());
    EXPECT_THAT(BasicLog(), Not(HasRecordWith(L"", L"Found device")));
}

// The libraries are closed along with the firewall.
class DiscoveryEndTest : public DiscoveryPageTest {
protected:
    void ExpectClosed() const {
        EXPECT_EQ(NetworkCalls(L"Uninitialize").size(), 1U);
        EXPECT_EQ(NetworkCalls(L"BidiUninitialize").size(), 1U);
    }
};

TEST_F(DiscoveryEndTest, ClosesTheLibrariesAfterARun) {
    AddDriver(L"MONO1");
    AddFourDevices();
    StartWithRows(4);
    SelectRow(1);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    ExpectClosed();
}

TEST_F(DiscoveryEndTest, ClosesTheLibrariesAfterACancel) {
    AddFourDevices();
    StartWithRows(4);
    wizard.Press(IDCANCEL);
    AnswerCancel(IDYES);
    wizard.WaitForEnd();
    ExpectClosed();
}

TEST_F(DiscoveryEndTest, ClosesTheLibrariesWhenTheSessionEnds) {
    AddFourDevices();
    StartWithRows(4);
    SendMessageW(wizard.MainWindow(), WM_ENDSESSION, TRUE, 0);
    ExpectClosed();
}

TEST_F(DiscoveryPageTest, StaysAliveWhileItSearches) {
    Script({L"discover", L"untilFile", Gate(L"gate")});
    StartOn(IDC_DISCOVERY_LIST);
    EXPECT_TRUE(WaitForSearches(1));
    wizard.Press(IDCANCEL);
    AnswerCancel(IDNO);
    EXPECT_TRUE(IsShown(IDC_DISCOVERY_LIST));
    Open(L"gate");
    EXPECT_TRUE(WaitForHeading(L"NO_PRINTER_FOUND"));
}

TEST_F(DiscoveryPageTest, GoesOnWithoutTheLibraries) {
    UseNetwork(L"", L"");
    AddDriver(L"NONE1");
    StartOn(IDC_DISCOVERY_LIST);
    EXPECT_TRUE(WaitForHeading(L"NO_PRINTER_FOUND"));
    wizard.Press(IDC_DISCOVERY_USB);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(Installs(), ElementsAre(L"NONE1.msi"));
}

TEST_F(DiscoveryPageTest, TellsOfAReplyThatCannotBeReadAndGoesOn) {
    AddDevice(L"10.0.0.1", L"A", Element(L"aioModelName", L"x"));
    Script({L"device", L"10.0.0.1", L"npa", L"A5000100FF"});
    StartWithRows(1);
    SelectRow(0);
    EXPECT_EQ(TextOf(IDC_DISCOVERY_SELECTION_TEXT), L"SELECT_PRINTSCAN_TEXT");
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"The reply of the device 10.0.0.1 cannot be read"));
}

TEST_F(DiscoveryPageTest, ShowsAThousandDevices) {
    for (int number = 0; number < 1000; ++number) {
        AddDevice(L"10.0." + std::to_wstring(number / 256) + L"." + std::to_wstring(number % 256),
                  L"Series " + std::to_wstring(number % 50));
    }
    StartOn(IDC_DISCOVERY_LIST);
    EXPECT_TRUE(WaitUntil([this] {
        return SendMessageW(wizard.FindControl(IDC_DISCOVERY_LIST), LVM_GETITEMCOUNT, 0, 0) == 1000;
    }));
    ClickHeading(1);
    EXPECT_EQ(wizard.CellOf(wizard.FindControl(IDC_DISCOVERY_LIST), 999, 1), L"10.0.3.231");
    EXPECT_EQ(SelectedRow() >= 0, IsEnabled(IDOK));
}

TEST_F(DiscoveryPageTest, SearchesForThePresetOfThePackage) {
    UseDiscovery(L"<SUBNETADDRESS>10.2.0.0:255.255.0.0</SUBNETADDRESS>");
    StartOn(IDC_DISCOVERY_LIST);
    EXPECT_TRUE(WaitForHeading(L"NO_PRINTER_FOUND"));
    wizard.Press(IDC_DISCOVERY_REFRESH);
    EXPECT_TRUE(WaitForSearches(2));
    EXPECT_THAT(Searches(), testing::Each(L"<RemoteSubnets>10.2.0.0:255.255.0.0;</RemoteSubnets>"));
    const std::vector<std::wstring> messages = BasicMessages(L"");
    EXPECT_EQ(
        std::count(messages.begin(), messages.end(), L"Filter for Subnet Address: 10.2.0.0:255.255.0.0"), 1);
}

TEST_F(DiscoveryPageTest, GivesTheFoundPortToThePrintersOfAConfiguration) {
    AddDriver(L"MONO1");
    AddDevice(L"10.0.0.7", L"Found", Element(L"IPNAME", L"host7") + Element(L"1284STRID", L"Model 7"));
    tree.SetUserSettings(L"<DEVICE><DRIVER_ID>MONO1</DRIVER_ID><DETECT_PRINTER>1</DETECT_PRINTER></DEVICE>");
    StartWithRows(1);
    SelectRow(0);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(CommandOf(L"MONO1.msi"), HasSubstr(L"<HOST_NAME>host7</HOST_NAME>"));
    EXPECT_THAT(CommandOf(L"MONO1.msi"), HasSubstr(L"<PORT_NAME>host7</PORT_NAME>"));
}

}  // namespace
