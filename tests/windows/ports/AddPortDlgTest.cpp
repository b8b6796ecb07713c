#include <windows.h>

#include <commctrl.h>

#include <array>

#include "ports/AddPortDlg.h"
#include "tests/windows/world/AddPortPage.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/FakeShare.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr wchar_t networkShare[] = L"\\\\server\\printer";

class AddPortDlgTest : public AddPortPageTest {};

std::wstring Heading(HWND list, int column) {
    std::array<wchar_t, 100> text{};
    LVCOLUMNW description{.mask = LVCF_TEXT};
    description.pszText = text.data();
    description.cchTextMax = static_cast<int>(text.size());
    SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&description));
    return text.data();
}

TEST_F(AddPortDlgTest, BeginsWithTheExistingPorts) {
    Open();
    EXPECT_EQ(page.dialogName, L"Add Port Dialog");
    EXPECT_EQ(TextOf(At(PortControl::kind)), L"Existing");
    EXPECT_EQ(SendMessageW(At(PortControl::kind), CB_GETCOUNT, 0, 0), 3);
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_NE(ListView_GetExtendedListViewStyle(At(PortControl::list)) & LVS_EX_FULLROWSELECT, 0U);
}

TEST_F(AddPortDlgTest, HeadsTheListWithoutTheAccessKey) {
    Open();
    EXPECT_EQ(Heading(At(PortControl::list), 0), L"Port name:");
    EXPECT_EQ(Heading(At(PortControl::list), 1), L"Type");
}

struct LayoutCase {
    int kind;
    std::vector<int> shown;
};

class AddPortLayoutTest : public AddPortPageTest, public testing::WithParamInterface<LayoutCase> {};

TEST_P(AddPortLayoutTest, ShowsTheControlsOfTheKind) {
    Open();
    Choose((GetParam().kind + 1) % 3);
    Choose(GetParam().kind);
    std::vector<int> shown;
    for (int control = PortControl::list; control <= PortControl::path; ++control) {
        if (IsShown(control)) shown.push_back(control);
    }
    EXPECT_EQ(shown, GetParam().shown);
}

const LayoutCase kLayouts[] = {
    {0, {PortControl::list}},
    {1, {PortControl::nameLabel, PortControl::name, PortControl::addressLabel, PortControl::address}},
    {2, {PortControl::pathLabel, PortControl::path}},
};

INSTANTIATE_TEST_SUITE_P(Kinds, AddPortLayoutTest, testing::ValuesIn(kLayouts));

TEST_F(AddPortDlgTest, LeavesTheLayoutOfATextThatItDoesNotKnow) {
    Open();
    Choose(1);
    SendMessageW(At(PortControl::kind), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"Unknown"));
    Enter(PortControl::name, L"a");
    Enter(PortControl::address, L"b");
    Choose(3);
    EXPECT_TRUE(IsShown(PortControl::name));
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(AddPortDlgTest, GoesOnWithASelectedPort) {
    Open();
    page.FillPortList({{L"LPT1:", L"Local Port"}});
    EXPECT_FALSE(IsEnabled(IDOK));
    SelectPort(0);
    EXPECT_TRUE(IsEnabled(IDOK));
    Choose(2);
    EXPECT_FALSE(IsEnabled(IDOK));
    Choose(0);
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(AddPortDlgTest, GoesOnWithANameAndAnAddress) {
    Open();
    Choose(1);
    Enter(PortControl::name, L"a");
    EXPECT_FALSE(IsEnabled(IDOK));
    Enter(PortControl::address, L"?");
    EXPECT_TRUE(IsEnabled(IDOK));
    Enter(PortControl::name, L"");
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(AddPortDlgTest, GoesOnWithAPath) {
    Open();
    Choose(2);
    EXPECT_FALSE(IsEnabled(IDOK));
    Enter(PortControl::path, L"x");
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(AddPortDlgTest, StaysWithoutAKind) {
    Open();
    Choose(1);
    Enter(PortControl::name, L"a");
    Enter(PortControl::address, L"b");
    SendMessageW(At(PortControl::kind), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    PressNext();
    EXPECT_EQ(Settings().GetString(L"PORT_NAME"), L"");
    Enter(PortControl::address, L"c");
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(AddPortDlgTest, KeepsWhatFitsIntoItsFields) {
    Open();
    Enter(PortControl::name, std::wstring(70, L'n'));
    Enter(PortControl::address, std::wstring(300, L'a'));
    Enter(PortControl::path, std::wstring(300, L'p'));
    EXPECT_EQ(GetWindowTextLengthW(At(PortControl::name)), 64);
    EXPECT_EQ(GetWindowTextLengthW(At(PortControl::address)), 256);
    EXPECT_EQ(GetWindowTextLengthW(At(PortControl::path)), 256);
}

TEST_F(AddPortDlgTest, HidesTheDriversAsLongAsThereAreNone) {
    Open();
    Show();
    for (const int control : {PortControl::driverFrame, PortControl::driverLabel, PortControl::driverList,
                              PortControl::configure, PortControl::title, PortControl::help}) {
        EXPECT_FALSE(IsShown(control)) << control;
    }
    EXPECT_EQ(GetFocus(), At(PortControl::kind));
}

TEST_F(AddPortDlgTest, ShowsTheDriversWithTheFirstOne) {
    Open();
    Show();
    page.AddDriver({.driverName = L"Loom", .driverId = L"LOOM"});
    EXPECT_TRUE(IsShown(PortControl::driverFrame));
    EXPECT_TRUE(IsShown(PortControl::driverLabel));
    EXPECT_TRUE(IsShown(PortControl::driverList));
    EXPECT_THAT(Drivers(), ElementsAre(L"Loom"));
}

TEST_F(AddPortDlgTest, HidesTheDriversOfAPackageThatSettlesThemItself) {
    Settings().SetString(L"AMAZON_SUPPORTED", L"TRUE");
    Open();
    Show();
    page.AddDriver({.driverName = L"Loom", .driverId = L"LOOM"});
    EXPECT_FALSE(IsShown(PortControl::driverList));
    EXPECT_FALSE(IsShown(PortControl::driverFrame));
    EXPECT_FALSE(IsEnabled(PortControl::driverLabel));
    EXPECT_THAT(Drivers(), ElementsAre(L"Loom"));
}

TEST_F(AddPortDlgTest, HidesTheDriversOfAPredefinedConfiguration) {
    Open();
    page.AddDriver({.driverName = L"Loom", .driverId = L"LOOM"});
    Settings().SetBool(L"INSTALL_FROM_CONFIG", true);
    Show();
    EXPECT_FALSE(IsShown(PortControl::driverList));
    EXPECT_FALSE(IsShown(PortControl::configure));
    EXPECT_TRUE(IsShown(PortControl::driverFrame));
}

TEST_F(AddPortDlgTest, DisablesTheTitleOfAPackageWithoutDrivers) {
    Settings().SetBool(L"APPS_ONLY_PACKAGE", true);
    Open();
    Show();
    EXPECT_FALSE(IsEnabled(PortControl::title));
}

TEST_F(AddPortDlgTest, DropsTheSelectedPortWhenItIsShown) {
    Open();
    page.FillPortList({{L"LPT1:", L"Local Port"}});
    SelectPort(0);
    Show();
    EXPECT_EQ(ListView_GetSelectedCount(At(PortControl::list)), 0U);
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(AddPortDlgTest, KeepsTheSelectedPortOfAKindThatIsNotChosen) {
    Open();
    page.FillPortList({{L"LPT1:", L"Local Port"}});
    SelectPort(0);
    Choose(1);
    Show();
    EXPECT_EQ(ListView_GetSelectedCount(At(PortControl::list)), 1U);
}

TEST_F(AddPortDlgTest, SelectsTheDefaultDriverWithEachOneThatComes) {
    Settings().SetStrings({{L"NO_COMM_DEFAULT", L"B"}, {L"WIN8_NO_COMM_DEFAULT", L"B"}});
    Open();
    page.AddDriver({.driverName = L"First", .driverId = L"A"});
    EXPECT_THAT(Drivers(), ElementsAre(L"First"));
    page.AddDriver({.driverName = L"Second", .driverId = L"B"});
    page.AddDriver({.driverName = L"Third", .driverId = L"B"});
    EXPECT_THAT(Drivers(), ElementsAre(L"First", L"[Second]", L"Third"));
    SendMessageW(At(PortControl::driverList), CB_SETCURSEL, 0, 0);
    page.AddDriver({.driverName = L"Fourth", .driverId = L"C"});
    EXPECT_THAT(Drivers(), ElementsAre(L"First", L"[Second]", L"Third", L"Fourth"));
}

TEST_F(AddPortDlgTest, ForgetsTheDriversThatAreCleared) {
    Open();
    page.AddDriver({.driverName = L"First", .driverId = L"A"});
    page.ClearDrivers();
    EXPECT_THAT(Drivers(), IsEmpty());
}

TEST_F(AddPortDlgTest, DropsTheConfigurationWithAnotherDriver) {
    Open();
    page.AddDriver({.driverName = L"First", .driverId = L"A"});
    Settings().SetString(L"DRIVERCONFIG_PATH", L"C:\\a.zdc");
    page.SendMessage(WM_COMMAND, MAKEWPARAM(PortControl::driverList, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(At(PortControl::driverList)));
    EXPECT_THAT(Settings().StripMarker(), HasSubstr(L"<DRIVERCONFIG_PATH></DRIVERCONFIG_PATH>"));
}

TEST_F(AddPortDlgTest, WritesNoEmptyConfigurationWhereNoneWasChosen) {
    Open();
    page.AddDriver({.driverName = L"First", .driverId = L"A"});
    EXPECT_THAT(Settings().StripMarker(), testing::Not(HasSubstr(L"DRIVERCONFIG_PATH")));
}

struct ConfigureCase {
    bool supported;
    std::wstring toolType;
    bool enabled;
};

class AddPortConfigureTest : public AddPortPageTest, public testing::WithParamInterface<ConfigureCase> {};

TEST_P(AddPortConfigureTest, IsOfferedForADriverThatTakesOneAndHasATool) {
    AddDriver(L"d.msi", L"CONFIGURABLE").properties[L"ISOMBRELSUPPORTED"] =
        GetParam().supported ? L"TRUE" : L"true";
    AddPackage(L"Common\\x64", L"t.msi").properties[L"APPTYPE"] = GetParam().toolType;
    BuildCatalogues();
    Settings().SetStrings(
        {{L"NO_COMM_DEFAULT", L"CONFIGURABLE"}, {L"WIN8_NO_COMM_DEFAULT", L"CONFIGURABLE"}});
    Open();
    page.AddDriver({.driverName = L"Driver", .driverId = L"CONFIGURABLE"});
    EXPECT_EQ(IsEnabled(PortControl::configure), GetParam().enabled);
}

const ConfigureCase kConfigurations[] = {
    {true, L"DRIVERCONFIG", true},
    {true, L"V4DRIVERCONFIG", false},
    {false, L"DRIVERCONFIG", false},
    {true, L"", false},
};

INSTANTIATE_TEST_SUITE_P(Drivers, AddPortConfigureTest, testing::ValuesIn(kConfigurations));

TEST_F(AddPortDlgTest, NamesTheConfigurationWithoutShowingItsButton) {
    AddPackage(L"Common\\x64", L"t.msi").properties[L"APPTYPE"] = L"DRIVERCONFIG";
    BuildCatalogues();
    Open();
    Show();
    SetWindowTextW(At(PortControl::configure), L"");
    page.AddDriver({.driverName = L"Loom V4", .driverId = L"A"});
    EXPECT_EQ(TextOf(At(PortControl::configure)), L"");
    page.AddDriver({.driverName = L"Loom", .driverId = L"A"});
    EXPECT_EQ(TextOf(At(PortControl::configure)), L"Configure");
    EXPECT_FALSE(IsShown(PortControl::configure));
}

TEST_F(AddPortDlgTest, LeavesSharedPrintersOutAsToldEachTimeItIsShown) {
    Open();
    page.ReceiveMessage(L"<SHOW_UNC>false</SHOW_UNC>");
    Show();
    EXPECT_EQ(SendMessageW(At(PortControl::kind), CB_GETCOUNT, 0, 0), 2);
    page.ShowWindow(SW_HIDE);
    Show();
    EXPECT_EQ(SendMessageW(At(PortControl::kind), CB_GETCOUNT, 0, 0), 2);
}

TEST_F(AddPortDlgTest, LeavesTheDriversOutAsTold) {
    Open();
    page.AddDriver({.driverName = L"Before", .driverId = L"A"});
    page.ReceiveMessage(L"<SHOW_DRIVER_LIST>false</SHOW_DRIVER_LIST>");
    Show();
    EXPECT_FALSE(IsShown(PortControl::driverList));
    EXPECT_FALSE(IsShown(PortControl::driverFrame));
    page.AddDriver({.driverName = L"Behind", .driverId = L"B"});
    EXPECT_THAT(Drivers(), ElementsAre(L"Before"));
}

TEST_F(AddPortDlgTest, TakesOnlyTheExactWordForNo) {
    Open();
    page.ReceiveMessage(L"<SHOW_UNC>FALSE</SHOW_UNC><SHOW_DRIVER_LIST>FALSE</SHOW_DRIVER_LIST>");
    Show();
    page.AddDriver({.driverName = L"Driver", .driverId = L"A"});
    EXPECT_EQ(SendMessageW(At(PortControl::kind), CB_GETCOUNT, 0, 0), 3);
    EXPECT_THAT(Drivers(), ElementsAre(L"Driver"));
}

TEST_F(AddPortDlgTest, ShowsThePortsInTheirOrder) {
    Open();
    page.FillPortList({{L"LPT2:", L"Local Port"}, {L"COM1:", L""}});
    EXPECT_EQ(Cell(0, 0), L"LPT2:");
    EXPECT_EQ(Cell(0, 1), L"Local Port");
    EXPECT_EQ(Cell(1, 0), L"COM1:");
    EXPECT_EQ(Cell(1, 1), L"");
    page.FillPortList({});
    EXPECT_EQ(Rows(), 0);
}

TEST_F(AddPortDlgTest, RefusesANameThatTheListHas) {
    Open();
    page.FillPortList({{L"Office", L""}});
    window.ShowWindow(SW_SHOW);
    Show();
    Choose(1);
    Enter(PortControl::name, L"Office");
    Enter(PortControl::address, L"10.1.2.3");
    EXPECT_EQ(PressNextAndConfirm(), L"Wrong: There is one.");
    EXPECT_EQ(TextOf(At(PortControl::name)), L"");
    EXPECT_EQ(TextOf(At(PortControl::address)), L"10.1.2.3");
    EXPECT_EQ(GetFocus(), At(PortControl::name));
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_EQ(Settings().GetString(L"PORT_NAME"), L"");
    Enter(PortControl::name, L"O");
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(AddPortDlgTest, RefusesAPathThatTheListHas) {
    const FakeShare share({.remoteName = networkShare});
    Open();
    page.FillPortList({{networkShare, L""}});
    Choose(2);
    Enter(PortControl::path, networkShare);
    EXPECT_EQ(PressNextAndConfirm(), L"Wrong: There is one.");
    EXPECT_EQ(TextOf(At(PortControl::path)), L"");
    EXPECT_FALSE(share.WasAsked());
}

TEST_F(AddPortDlgTest, RefusesAPathThatIsNoSharedPrinter) {
    const FakeShare share({.type = RESOURCETYPE_DISK, .remoteName = networkShare});
    Open();
    Choose(2);
    Enter(PortControl::path, networkShare);
    EXPECT_EQ(PressNextAndConfirm(), L"Wrong: No such printer.");
    EXPECT_EQ(TextOf(At(PortControl::path)), L"");
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_EQ(Settings().GetString(L"PORT_NAME"), L"");
}

TEST_F(AddPortDlgTest, GoesBackToThePageThatTheMessageNames) {
    page.ReceiveMessage(L"<FROM_DIALOG>Nobody</FROM_DIALOG>");
    Open();
    page.SendMessage(WM_COMMAND, MAKEWPARAM(PortControl::back, BN_CLICKED));
    // No page of that name exists here, but it is that way and not the one to the page before.
    EXPECT_THAT(AdvancedMessages(), Contains(L"Controller::GoToSpecifiedDlg, Move to 0"));
    EXPECT_THAT(AdvancedMessages(), testing::Not(Contains(HasSubstr(L"Controller::Back"))));
}

}  // namespace
