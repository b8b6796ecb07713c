#include <windows.h>

#include <commctrl.h>

#include <array>

#include "ports/AddPortDlg.h"
#include "resources/resource.h"
#include "tests/windows/world/AddPortPageWorld.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/FakeShare.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr wchar_t networkShare[] = L"\\\\server\\printer";

class AddPortDlgTest : public AddPortPageWorld {};

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
    EXPECT_EQ(TextOf(At(IDC_ADD_PORT_KIND)), L"Existing");
    EXPECT_EQ(SendMessageW(At(IDC_ADD_PORT_KIND), CB_GETCOUNT, 0, 0), 3);
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_NE(ListView_GetExtendedListViewStyle(At(IDC_ADD_PORT_LIST)) & LVS_EX_FULLROWSELECT, 0U);
}

TEST_F(AddPortDlgTest, HeadsTheListWithoutTheAccessKey) {
    Open();
    EXPECT_EQ(Heading(At(IDC_ADD_PORT_LIST), 0), L"Port name:");
    EXPECT_EQ(Heading(At(IDC_ADD_PORT_LIST), 1), L"Type");
}

TEST_F(AddPortDlgTest, HasMoreRoomForAHeadingThanItsText) {
    Open();
    const HWND list = At(IDC_ADD_PORT_LIST);
    EXPECT_GE(ListView_GetColumnWidth(list, 0),
              ListView_GetStringWidth(list, L"Port name:") + GetSystemMetrics(SM_CXVSCROLL));
}

struct LayoutCase {
    int kind;
    std::vector<int> shown;
};

class AddPortLayoutTest : public AddPortPageWorld, public testing::WithParamInterface<LayoutCase> {};

TEST_P(AddPortLayoutTest, ShowsTheControlsOfTheKind) {
    Open();
    Choose((GetParam().kind + 1) % 3);
    Choose(GetParam().kind);
    std::vector<int> shown;
    for (int control = IDC_ADD_PORT_LIST; control <= IDC_ADD_PORT_PATH; ++control) {
        if (IsShown(control)) shown.push_back(control);
    }
    EXPECT_EQ(shown, GetParam().shown);
}

const LayoutCase layouts[] = {
    {0, {IDC_ADD_PORT_LIST}},
    {1, {IDC_ADD_PORT_NAME_LABEL, IDC_ADD_PORT_NAME, IDC_ADD_PORT_ADDRESS_LABEL, IDC_ADD_PORT_ADDRESS}},
    {2, {IDC_ADD_PORT_PATH_LABEL, IDC_ADD_PORT_PATH}},
};

INSTANTIATE_TEST_SUITE_P(Kinds, AddPortLayoutTest, testing::ValuesIn(layouts));

TEST_F(AddPortDlgTest, LeavesTheLayoutOfATextThatItDoesNotKnow) {
    Open();
    Choose(1);
    SendMessageW(At(IDC_ADD_PORT_KIND), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"Unknown"));
    Enter(IDC_ADD_PORT_NAME, L"a");
    Enter(IDC_ADD_PORT_ADDRESS, L"b");
    Choose(3);
    EXPECT_TRUE(IsShown(IDC_ADD_PORT_NAME));
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
    Enter(IDC_ADD_PORT_NAME, L"a");
    EXPECT_FALSE(IsEnabled(IDOK));
    Enter(IDC_ADD_PORT_ADDRESS, L"?");
    EXPECT_TRUE(IsEnabled(IDOK));
    Enter(IDC_ADD_PORT_NAME, L"");
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(AddPortDlgTest, GoesOnWithAPath) {
    Open();
    Choose(2);
    EXPECT_FALSE(IsEnabled(IDOK));
    Enter(IDC_ADD_PORT_PATH, L"x");
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(AddPortDlgTest, StaysWithoutAKind) {
    Open();
    Choose(1);
    Enter(IDC_ADD_PORT_NAME, L"a");
    Enter(IDC_ADD_PORT_ADDRESS, L"b");
    SendMessageW(At(IDC_ADD_PORT_KIND), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    PressNext();
    EXPECT_EQ(Settings().GetString(Tag::PORT_NAME), L"");
    Enter(IDC_ADD_PORT_ADDRESS, L"c");
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(AddPortDlgTest, KeepsWhatFitsIntoItsFields) {
    Open();
    Enter(IDC_ADD_PORT_NAME, std::wstring(70, L'n'));
    Enter(IDC_ADD_PORT_ADDRESS, std::wstring(300, L'a'));
    Enter(IDC_ADD_PORT_PATH, std::wstring(300, L'p'));
    EXPECT_EQ(GetWindowTextLengthW(At(IDC_ADD_PORT_NAME)), 64);
    EXPECT_EQ(GetWindowTextLengthW(At(IDC_ADD_PORT_ADDRESS)), 256);
    EXPECT_EQ(GetWindowTextLengthW(At(IDC_ADD_PORT_PATH)), 256);
}

TEST_F(AddPortDlgTest, HidesTheDriversAsLongAsThereAreNone) {
    Open();
    Show();
    for (const int control : {IDC_ADD_PORT_DRIVER_FRAME, IDC_ADD_PORT_DRIVER_LABEL, IDC_ADD_PORT_DRIVER_LIST,
                              IDC_ADD_PORT_CONFIGURE, IDC_ADD_PORT_TITLE, IDC_HELP_BUTTON}) {
        EXPECT_FALSE(IsShown(control)) << control;
    }
    EXPECT_EQ(GetFocus(), At(IDC_ADD_PORT_KIND));
}

TEST_F(AddPortDlgTest, ShowsTheDriversWithTheFirstOne) {
    Open();
    Show();
    page.AddDriver({.driverName = L"Loom", .driverId = L"LOOM"});
    EXPECT_TRUE(IsShown(IDC_ADD_PORT_DRIVER_FRAME));
    EXPECT_TRUE(IsShown(IDC_ADD_PORT_DRIVER_LABEL));
    EXPECT_TRUE(IsShown(IDC_ADD_PORT_DRIVER_LIST));
    EXPECT_THAT(Drivers(), ElementsAre(L"Loom"));
}

TEST_F(AddPortDlgTest, HidesTheDriversOfAPackageThatSettlesThemItself) {
    Settings().SetString(Tag::AMAZON_SUPPORTED, L"TRUE");
    Open();
    Show();
    page.AddDriver({.driverName = L"Loom", .driverId = L"LOOM"});
    EXPECT_FALSE(IsShown(IDC_ADD_PORT_DRIVER_LIST));
    EXPECT_FALSE(IsShown(IDC_ADD_PORT_DRIVER_FRAME));
    EXPECT_FALSE(IsEnabled(IDC_ADD_PORT_DRIVER_LABEL));
    EXPECT_THAT(Drivers(), ElementsAre(L"Loom"));
}

TEST_F(AddPortDlgTest, HidesTheDriversOfAPredefinedConfiguration) {
    Open();
    page.AddDriver({.driverName = L"Loom", .driverId = L"LOOM"});
    Settings().SetBool(Tag::INSTALL_FROM_CONFIG, true);
    Show();
    EXPECT_FALSE(IsShown(IDC_ADD_PORT_DRIVER_LIST));
    EXPECT_FALSE(IsShown(IDC_ADD_PORT_CONFIGURE));
    EXPECT_TRUE(IsShown(IDC_ADD_PORT_DRIVER_FRAME));
}

TEST_F(AddPortDlgTest, DisablesTheTitleOfAPackageWithoutDrivers) {
    Settings().SetBool(Tag::APPS_ONLY_PACKAGE, true);
    Open();
    Show();
    EXPECT_FALSE(IsEnabled(IDC_ADD_PORT_TITLE));
}

TEST_F(AddPortDlgTest, DropsTheSelectedPortWhenItIsShown) {
    Open();
    page.FillPortList({{L"LPT1:", L"Local Port"}});
    SelectPort(0);
    Show();
    EXPECT_EQ(ListView_GetSelectedCount(At(IDC_ADD_PORT_LIST)), 0U);
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(AddPortDlgTest, KeepsTheSelectedPortOfAKindThatIsNotChosen) {
    Open();
    page.FillPortList({{L"LPT1:", L"Local Port"}});
    SelectPort(0);
    Choose(1);
    Show();
    EXPECT_EQ(ListView_GetSelectedCount(At(IDC_ADD_PORT_LIST)), 1U);
}

TEST_F(AddPortDlgTest, SelectsTheDefaultDriverWithEachOneThatComes) {
    Settings().SetStrings({{Tag::NO_COMM_DEFAULT, L"B"}, {TextTag(L"WIN8_NO_COMM_DEFAULT"), L"B"}});
    Open();
    page.AddDriver({.driverName = L"First", .driverId = L"A"});
    EXPECT_THAT(Drivers(), ElementsAre(L"First"));
    page.AddDriver({.driverName = L"Second", .driverId = L"B"});
    page.AddDriver({.driverName = L"Third", .driverId = L"B"});
    EXPECT_THAT(Drivers(), ElementsAre(L"First", L"[Second]", L"Third"));
    SendMessageW(At(IDC_ADD_PORT_DRIVER_LIST), CB_SETCURSEL, 0, 0);
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
    Settings().SetString(Tag::DRIVERCONFIG_PATH, L"C:\\a.zdc");
    configuration.SetOwner(L"B");
    SendMessageW(At(IDC_ADD_PORT_DRIVER_LIST), CB_SETCURSEL, 0, 0);
    page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_ADD_PORT_DRIVER_LIST, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(At(IDC_ADD_PORT_DRIVER_LIST)));
    EXPECT_THAT(Settings().StripMarker(), HasSubstr(L"<DRIVERCONFIG_PATH></DRIVERCONFIG_PATH>"));
}

TEST_F(AddPortDlgTest, KeepsTheConfigurationWhenTheWalkPassesBy) {
    Settings().SetString(Tag::DRIVERCONFIG_PATH, L"C:\\a.zdc");
    configuration.SetOwner(L"B");
    Settings().SetString(TextTag(L"WIN8_NO_COMM_DEFAULT"), L"A");
    Open();
    page.AddDriver({.driverName = L"First", .driverId = L"A"});
    EXPECT_EQ(Settings().GetString(Tag::DRIVERCONFIG_PATH), L"C:\\a.zdc");
    Show();
    page.AddDriver({.driverName = L"Second", .driverId = L"C"});
    EXPECT_EQ(Settings().GetString(Tag::DRIVERCONFIG_PATH), L"");
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

class AddPortConfigureTest : public AddPortPageWorld, public testing::WithParamInterface<ConfigureCase> {};

TEST_P(AddPortConfigureTest, IsOfferedForADriverThatTakesOneAndHasATool) {
    AddDriver(L"d.msi", L"CONFIGURABLE").properties[L"ISOMBRELSUPPORTED"] =
        GetParam().supported ? L"TRUE" : L"true";
    AddPackage(L"Common\\x64", L"t.msi").properties[L"APPTYPE"] = GetParam().toolType;
    BuildCatalogues();
    Settings().SetStrings(
        {{Tag::NO_COMM_DEFAULT, L"CONFIGURABLE"}, {TextTag(L"WIN8_NO_COMM_DEFAULT"), L"CONFIGURABLE"}});
    Open();
    Show();
    page.AddDriver({.driverName = L"Driver", .driverId = L"CONFIGURABLE"});
    EXPECT_EQ(IsEnabled(IDC_ADD_PORT_CONFIGURE), GetParam().enabled);
    EXPECT_EQ(IsShown(IDC_ADD_PORT_CONFIGURE), GetParam().enabled);
    EXPECT_EQ(TextOf(At(IDC_ADD_PORT_CONFIGURE)), L"Configure");
}

const ConfigureCase configurations[] = {
    {true, L"DRIVERCONFIG", true},
    {true, L"V4DRIVERCONFIG", false},
    {false, L"DRIVERCONFIG", false},
    {true, L"", false},
};

INSTANTIATE_TEST_SUITE_P(Drivers, AddPortConfigureTest, testing::ValuesIn(configurations));

TEST_F(AddPortDlgTest, LeavesSharedPrintersOutAsToldEachTimeItIsShown) {
    Open();
    page.ReceiveMessage(L"<SHOW_UNC>false</SHOW_UNC>");
    Show();
    EXPECT_EQ(SendMessageW(At(IDC_ADD_PORT_KIND), CB_GETCOUNT, 0, 0), 2);
    page.ShowWindow(SW_HIDE);
    Show();
    EXPECT_EQ(SendMessageW(At(IDC_ADD_PORT_KIND), CB_GETCOUNT, 0, 0), 2);
}

TEST_F(AddPortDlgTest, LeavesTheDriversOutAsTold) {
    Open();
    page.AddDriver({.driverName = L"Before", .driverId = L"A"});
    page.ReceiveMessage(L"<SHOW_DRIVER_LIST>false</SHOW_DRIVER_LIST>");
    Show();
    EXPECT_FALSE(IsShown(IDC_ADD_PORT_DRIVER_LIST));
    EXPECT_FALSE(IsShown(IDC_ADD_PORT_DRIVER_FRAME));
    page.AddDriver({.driverName = L"Behind", .driverId = L"B"});
    EXPECT_THAT(Drivers(), ElementsAre(L"Before"));
}

TEST_F(AddPortDlgTest, TakesOnlyTheExactWordForNo) {
    Open();
    page.ReceiveMessage(L"<SHOW_UNC>FALSE</SHOW_UNC><SHOW_DRIVER_LIST>FALSE</SHOW_DRIVER_LIST>");
    Show();
    page.AddDriver({.driverName = L"Driver", .driverId = L"A"});
    EXPECT_EQ(SendMessageW(At(IDC_ADD_PORT_KIND), CB_GETCOUNT, 0, 0), 3);
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

// Notes how many rows a list has whenever its drawing is switched.
LRESULT CALLBACK WatchDrawing(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                              DWORD_PTR notes) {
    if (message == WM_SETREDRAW) {
        reinterpret_cast<std::vector<std::pair<bool, int>>*>(notes)->emplace_back(
            wParam != 0, ListView_GetItemCount(list));
    }
    return DefSubclassProc(list, message, wParam, lParam);
}

TEST_F(AddPortDlgTest, LeavesItsPortsHiddenWhereAnotherKindIsChosen) {
    Open();
    Choose(1);
    const HWND list = At(IDC_ADD_PORT_LIST);
    std::vector<std::pair<bool, int>> notes;
    SetWindowSubclass(list, &WatchDrawing, 1, reinterpret_cast<DWORD_PTR>(&notes));
    page.FillPortList({{L"Office", L"Local Port"}});
    RemoveWindowSubclass(list, &WatchDrawing, 1);
    EXPECT_THAT(notes, IsEmpty());
    EXPECT_FALSE(IsShown(IDC_ADD_PORT_LIST));
    EXPECT_EQ(Rows(), 1);
}

TEST_F(AddPortDlgTest, DrawsItsPortsOnceHoweverManyThereAre) {
    Open();
    std::vector<std::pair<bool, int>> notes;
    const HWND list = At(IDC_ADD_PORT_LIST);
    SetWindowSubclass(list, &WatchDrawing, 1, reinterpret_cast<DWORD_PTR>(&notes));
    page.FillPortList(std::vector<PortEntry>(500, {L"Office", L"Local Port"}));
    RemoveWindowSubclass(list, &WatchDrawing, 1);
    EXPECT_THAT(notes, ElementsAre(std::pair(false, 0), std::pair(true, 500)));
    EXPECT_EQ(Rows(), 500);
}

TEST_F(AddPortDlgTest, ShowsACutTextUnderTheMouse) {
    Open();
    constexpr LRESULT tips = LVS_EX_LABELTIP | LVS_EX_INFOTIP;
    EXPECT_EQ(SendMessageW(At(IDC_ADD_PORT_LIST), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & tips, tips);
}

TEST_F(AddPortDlgTest, RefusesANameThatTheListHas) {
    Open();
    page.FillPortList({{L"Office", L""}});
    window.ShowWindow(SW_SHOW);
    Show();
    Choose(1);
    Enter(IDC_ADD_PORT_NAME, L"Office");
    Enter(IDC_ADD_PORT_ADDRESS, L"10.1.2.3");
    EXPECT_EQ(PressNextAndConfirm(), L"Wrong: There is one.");
    EXPECT_EQ(TextOf(At(IDC_ADD_PORT_NAME)), L"");
    EXPECT_EQ(TextOf(At(IDC_ADD_PORT_ADDRESS)), L"10.1.2.3");
    EXPECT_EQ(GetFocus(), At(IDC_ADD_PORT_NAME));
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_EQ(Settings().GetString(Tag::PORT_NAME), L"");
    Enter(IDC_ADD_PORT_NAME, L"O");
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(AddPortDlgTest, RefusesAPathThatTheListHas) {
    const FakeShare share({.remoteName = networkShare});
    Open();
    page.FillPortList({{networkShare, L""}});
    Choose(2);
    Enter(IDC_ADD_PORT_PATH, networkShare);
    EXPECT_EQ(PressNextAndConfirm(), L"Wrong: There is one.");
    EXPECT_EQ(TextOf(At(IDC_ADD_PORT_PATH)), L"");
    EXPECT_FALSE(share.WasAsked());
}

TEST_F(AddPortDlgTest, RefusesAPathThatIsNoSharedPrinter) {
    const FakeShare share({.type = RESOURCETYPE_DISK, .remoteName = networkShare});
    Open();
    Choose(2);
    Enter(IDC_ADD_PORT_PATH, networkShare);
    EXPECT_EQ(PressNextAndConfirm(), L"Wrong: No such printer.");
    EXPECT_EQ(TextOf(At(IDC_ADD_PORT_PATH)), L"");
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_EQ(Settings().GetString(Tag::PORT_NAME), L"");
}

TEST_F(AddPortDlgTest, GoesBackToThePageThatTheMessageNames) {
    page.ReceiveMessage(L"<FROM_DIALOG>Nobody</FROM_DIALOG>");
    Open();
    page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_ADD_PORT_BACK, BN_CLICKED));
    // No page of that name exists here, but it is that way and not the one to the page before.
    EXPECT_THAT(AdvancedMessages(), Contains(L"Controller::GoToSpecifiedDlg, Move to 0"));
    EXPECT_THAT(AdvancedMessages(), testing::Not(Contains(HasSubstr(L"Controller::Back"))));
}

}  // namespace
