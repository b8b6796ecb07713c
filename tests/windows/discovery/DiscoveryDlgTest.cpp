#include <algorithm>
#include <utility>

#include "discovery/DiscoveredDevices.h"
#include "framework/Spoken.h"
#include "resources/resource.h"
#include "tests/windows/world/ArabicUser.h"
#include "tests/windows/world/DevicesPageWorld.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/FakeAnnotations.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int ascending = 1;
constexpr int descending = 0;
constexpr int unsorted = 2;

using DiscoveryDlgTest = DevicesPageWorld;

TEST_F(DiscoveryDlgTest, BeginsWithTheSearchAndNothingChosen) {
    Show();
    EXPECT_THAT(Headings(), ElementsAre(L"DISCOVERED_LIST_COLUMN_SEARCHING"));
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_TRUE(IsEnabled(IDC_DISCOVERY_REFRESH) && IsEnabled(IDC_DISCOVERY_MODIFY_SEARCH) &&
                IsEnabled(IDC_DISCOVERY_ADD_PORT) && IsEnabled(IDCANCEL));
    EXPECT_FALSE(IsShown(IDC_DISCOVERY_FIRST_NOTE) || IsShown(IDC_HELP_BUTTON) ||
                 IsShown(IDC_DISCOVERY_CONFIGURE));
    EXPECT_TRUE(IsShown(IDC_DISCOVERY_SECOND_NOTE));
    EXPECT_EQ(IsDlgButtonChecked(page.GetSafeHwnd(), IDC_DISCOVERY_USB), static_cast<UINT>(BST_UNCHECKED));
    EXPECT_TRUE(Settings().GetBool(Tag::DISCOVERY_DONE));
}

TEST_F(DiscoveryDlgTest, ShowsADeviceBySeriesAddressAndColour) {
    Show();
    Deliver(FourDevices());
    EXPECT_THAT(Headings(), ElementsAre(L"DISCOVERED_LIST_COLUMN_MODEL", L"DISCOVERED_LIST_COLUMN_IPADDRESS",
                                        L"DISCOVERED_LIST_COLUMN_PRINTER"));
    EXPECT_THAT(Column(0), ElementsAre(L"A", L"B", L"D", L"M"));
    EXPECT_THAT(Column(1), ElementsAre(L"10.0.0.1", L"10.0.0.9", L"10.0.0.10", L"10.0.0.2"));
    EXPECT_THAT(Column(2), ElementsAre(L"", L"MONO", L"COLOR", L"MONO"));
    EXPECT_EQ(ListView_GetColumnWidth(At(IDC_DISCOVERY_LIST), 0), 220);
}

TEST_F(DiscoveryDlgTest, SelectsTheFourthRow) {
    Show();
    Deliver(FourDevices());
    EXPECT_EQ(SelectedRow(), 3);
    // The last by its name, and not the last that was delivered.
    EXPECT_EQ(Column(0).back(), L"M");
    EXPECT_TRUE(IsEnabled(IDOK));
    EXPECT_EQ(GetFocus(), At(IDC_DISCOVERY_LIST));
}

TEST_F(DiscoveryDlgTest, ProposesNoRowToWhoHasPickedAConnection) {
    Settings().SetString(Tag::USB_SUPPORTED, L"1");
    Show();
    Click(IDC_DISCOVERY_USB);
    Deliver(FourDevices());
    EXPECT_EQ(SelectedRow(), -1);
}

TEST_F(DiscoveryDlgTest, FocusesTheSelectedRowForWhoComesBack) {
    Show();
    Deliver(FourDevices());
    ListView_SetItemState(At(IDC_DISCOVERY_LIST), 3, 0, LVIS_FOCUSED);
    page.ShowWindow(SW_HIDE);
    page.ShowWindow(SW_SHOW);
    EXPECT_EQ(ListView_GetNextItem(At(IDC_DISCOVERY_LIST), -1, LVNI_FOCUSED), 3);
}

TEST_F(DiscoveryDlgTest, SelectsNothingAmongThreeRows) {
    Show();
    std::list<DiscoveredDevice> devices = FourDevices();
    devices.pop_back();
    Deliver(devices);
    EXPECT_EQ(SelectedRow(), -1);
    EXPECT_FALSE(IsEnabled(IDOK));
    Select(0);
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(DiscoveryDlgTest, ShowsTheFocusOnARowThatArrivesUnderIt) {
    Show();
    SetFocus(At(IDC_DISCOVERY_LIST));
    Deliver({{.series = L"B"}, {.series = L"A"}});
    EXPECT_EQ(ListView_GetNextItem(At(IDC_DISCOVERY_LIST), -1, LVNI_FOCUSED), 0);
    EXPECT_EQ(SelectedRow(), -1);
}

TEST_F(DiscoveryDlgTest, ShutsNextWhenTheUserTakesTheSelectionBack) {
    Show();
    Deliver(FourDevices());
    ListView_SetItemState(At(IDC_DISCOVERY_LIST), 3, 0, LVIS_SELECTED);
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(DiscoveryDlgTest, KeepsTheNothingFoundColumnWhenAnEmptyListFollows) {
    Show();
    page.NoPrinterFound();
    Deliver({});
    EXPECT_THAT(Headings(), ElementsAre(L"NO_PRINTER_FOUND"));
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(DiscoveryDlgTest, TakesTheSelectionBackWhenNothingIsFound) {
    Show();
    Deliver(FourDevices());
    page.NoPrinterFound();
    PumpMessages();
    EXPECT_THAT(Column(0), IsEmpty());
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(DiscoveryDlgTest, ReplacesTheRowsUnderTheUser) {
    Show();
    Deliver(FourDevices());
    Select(0);
    Deliver({{.series = L"Z", .address = L"10.0.0.20"}});
    EXPECT_THAT(Column(0), ElementsAre(L"Z"));
    EXPECT_EQ(SelectedRow(), -1);
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(DiscoveryDlgTest, WrapsAddressesForAUserWhoReadsFromRightToLeft) {
    const ArabicUser user;
    Show();
    Deliver({{.series = L"A", .address = L"10.0.0.1", .isMultiFunction = true}});
    EXPECT_THAT(Column(1), ElementsAre(L"\x202D"
                                       L"10.0.0.1\x202C"));
    Select(0);
    // The marks are for the eye alone.
    EXPECT_EQ(TextOf(At(IDC_DISCOVERY_SELECTION_TEXT)), L"SELECT_PRINTSCAN_TEXT");
}

class LongSeriesTest : public DiscoveryDlgTest, public testing::WithParamInterface<std::size_t> {
protected:
    // The message that ends the program must not reach the next test.
    ~LongSeriesTest() override { PumpMessages(); }
};

TEST_P(LongSeriesTest, KeepsItsPort) {
    const std::wstring series = std::wstring(GetParam() - 1, L'x') + L"y";
    Show();
    Deliver({{.series = series, .address = L"10.0.0.1", .hostName = L"host"}});
    Select(0);
    Click(IDOK);
    EXPECT_EQ(Settings().GetString(Tag::PRINTER_NAME), series);
    EXPECT_EQ(Settings().GetString(Tag::PORT_NAME), L"host");
}

INSTANTIATE_TEST_SUITE_P(Lengths, LongSeriesTest, testing::Values(126, 127, 128, 129, 255, 256, 257, 5000));

TEST_F(DiscoveryDlgTest, SortsAddressesByTheirNumbersForAUserWhoReadsFromRightToLeft) {
    const ArabicUser user;
    Show();
    Deliver({{.series = L"A", .address = L"10.0.0.10"}, {.series = L"B", .address = L"10.0.0.9"}});
    ClickColumn(1);
    EXPECT_THAT(Column(0), ElementsAre(L"B", L"A"));
}

TEST_F(DiscoveryDlgTest, ShowsThatItsListIsDisabled) {
    Show();
    const HWND list = At(IDC_DISCOVERY_LIST);
    const LRESULT ground = SendMessageW(list, LVM_GETBKCOLOR, 0, 0);
    const LRESULT text = SendMessageW(list, LVM_GETTEXTCOLOR, 0, 0);
    EnableWindow(list, FALSE);
    EXPECT_EQ(SendMessageW(list, LVM_GETBKCOLOR, 0, 0), static_cast<LRESULT>(GetSysColor(COLOR_BTNFACE)));
    EXPECT_EQ(SendMessageW(list, LVM_GETTEXTBKCOLOR, 0, 0), static_cast<LRESULT>(GetSysColor(COLOR_BTNFACE)));
    EXPECT_EQ(SendMessageW(list, LVM_GETTEXTCOLOR, 0, 0), static_cast<LRESULT>(GetSysColor(COLOR_GRAYTEXT)));
    EnableWindow(list, TRUE);
    EXPECT_EQ(SendMessageW(list, LVM_GETBKCOLOR, 0, 0), ground);
    EXPECT_EQ(SendMessageW(list, LVM_GETTEXTCOLOR, 0, 0), text);
}

TEST_F(DiscoveryDlgTest, HasMoreRoomForAnAddressThanItsHeadingNeeds) {
    Show();
    Deliver({{.series = L"A"}});
    const HWND list = At(IDC_DISCOVERY_LIST);
    const int width = ListView_GetColumnWidth(list, 1);
    ListView_SetColumnWidth(list, 1, LVSCW_AUTOSIZE_USEHEADER);
    EXPECT_EQ(width, ListView_GetColumnWidth(list, 1) + 100);
}

TEST_F(DiscoveryDlgTest, ShowsACutTextUnderTheMouse) {
    Show();
    constexpr LRESULT tips = LVS_EX_LABELTIP | LVS_EX_INFOTIP;
    EXPECT_EQ(SendMessageW(At(IDC_DISCOVERY_LIST), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & tips, tips);
}

struct SelectionCase {
    bool isMultiFunction;
    bool hasFax;
    const wchar_t* key;
};

class SelectionTextTest : public DiscoveryDlgTest, public testing::WithParamInterface<SelectionCase> {};

TEST_P(SelectionTextTest, SaysWhatWillBeInstalled) {
    Show();
    Deliver({{.series = L"A",
              .address = L"10.0.0.1",
              .isMultiFunction = GetParam().isMultiFunction,
              .hasFax = GetParam().hasFax}});
    Select(0);
    EXPECT_EQ(TextOf(At(IDC_DISCOVERY_SELECTION_TEXT)), GetParam().key);
    EXPECT_TRUE(IsShown(IDC_DISCOVERY_SELECTION_TEXT));
}

INSTANTIATE_TEST_SUITE_P(Devices, SelectionTextTest,
                         testing::Values(SelectionCase{true, true, L"DOWNLOAD_INSTALL_TITLE"},
                                         SelectionCase{true, false, L"SELECT_PRINTSCAN_TEXT"},
                                         SelectionCase{false, true, L"SELECT_PRINT_TEXT"},
                                         SelectionCase{false, false, L"SELECT_PRINT_TEXT"}));

LRESULT CALLBACK NoteShowing(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                             DWORD_PTR notes) {
    if (message == WM_SHOWWINDOW) reinterpret_cast<std::vector<bool>*>(notes)->push_back(wParam != 0);
    return DefSubclassProc(control, message, wParam, lParam);
}

// The page's picture shows through the text, so what stood there before has to go.
TEST_F(DiscoveryDlgTest, HidesTheFormerTextOfTheSelectionBeforeItShowsTheNewOne) {
    Show();
    Deliver({{.series = L"A", .address = L"10.0.0.1"}, {.series = L"B", .address = L"10.0.0.2"}});
    std::vector<bool> notes;
    const HWND text = At(IDC_DISCOVERY_SELECTION_TEXT);
    SetWindowSubclass(text, &NoteShowing, 1, reinterpret_cast<DWORD_PTR>(&notes));
    Select(1);
    RemoveWindowSubclass(text, &NoteShowing, 1);
    EXPECT_THAT(notes, testing::Contains(false));
    EXPECT_TRUE(!notes.empty() && notes.back());
}

TEST_F(DiscoveryDlgTest, LetsTheLastDeviceWithAnAddressSpeakForIt) {
    Show();
    Deliver({{.series = L"A", .address = L"10.0.0.1", .isMultiFunction = true},
             {.series = L"B", .address = L"10.0.0.1"}});
    Select(0);
    EXPECT_EQ(TextOf(At(IDC_DISCOVERY_SELECTION_TEXT)), L"SELECT_PRINT_TEXT");
}

TEST_F(DiscoveryDlgTest, SpeaksOfNoFormerDeviceWhenAListArrives) {
    Show();
    Deliver({{.series = L"A", .address = L"10.0.0.1", .isMultiFunction = true}});
    Select(0);
    EXPECT_EQ(TextOf(At(IDC_DISCOVERY_SELECTION_TEXT)), L"SELECT_PRINTSCAN_TEXT");
    Deliver({{.series = L"B", .address = L"10.0.0.2"}});
    EXPECT_EQ(TextOf(At(IDC_DISCOVERY_SELECTION_TEXT)), L"SELECT_PRINT_TEXT");
}

TEST_F(DiscoveryDlgTest, SortsByTheClickedColumnAndBack) {
    Show();
    Deliver(FourDevices());
    ClickColumn(1);
    EXPECT_THAT(Column(1), ElementsAre(L"10.0.0.1", L"10.0.0.2", L"10.0.0.9", L"10.0.0.10"));
    EXPECT_THAT(HeadingImages(), ElementsAre(unsorted, ascending, unsorted));
    ClickColumn(1);
    EXPECT_THAT(Column(1), ElementsAre(L"10.0.0.10", L"10.0.0.9", L"10.0.0.2", L"10.0.0.1"));
    EXPECT_THAT(HeadingImages(), ElementsAre(unsorted, descending, unsorted));
    ClickColumn(0);
    EXPECT_THAT(Column(0), ElementsAre(L"A", L"B", L"D", L"M"));
    EXPECT_THAT(HeadingImages(), ElementsAre(ascending, unsorted, unsorted));
}

// What the list says to who hears the page.
class SpokenDevicesTest : public DiscoveryDlgTest {
protected:
    std::wstring OrderOfList() const { return FakeAnnotations::DescriptionOf(At(IDC_DISCOVERY_LIST)); }
    // Whether the state was told since the last call.
    bool WasTold() const {
        return std::ranges::count(FakeAnnotations::TakeEvents(),
                                  std::pair<DWORD, HWND>(liveRegionChanged, At(IDC_DISCOVERY_STATE))) != 0;
    }

    FakeAnnotations annotations;
};

TEST_F(SpokenDevicesTest, SaysItsOrder) {
    Show();
    Deliver(FourDevices());
    EXPECT_EQ(OrderOfList(), L"DISCOVERED_LIST_COLUMN_MODEL, DISCOVERED_LIST_ASCENDING");
    FakeAnnotations::TakeEvents();
    ClickColumn(1);
    EXPECT_EQ(OrderOfList(), L"DISCOVERED_LIST_COLUMN_IPADDRESS, DISCOVERED_LIST_ASCENDING");
    EXPECT_THAT(FakeAnnotations::TakeEvents(), testing::Contains(std::pair<DWORD, HWND>(
                                                   EVENT_OBJECT_DESCRIPTIONCHANGE, At(IDC_DISCOVERY_LIST))));
    ClickColumn(1);
    EXPECT_EQ(OrderOfList(), L"DISCOVERED_LIST_COLUMN_IPADDRESS, DISCOVERED_LIST_DESCENDING");
}

TEST_F(SpokenDevicesTest, SaysNoOrderWithoutDevices) {
    Show();
    Deliver(FourDevices());
    page.NoPrinterFound();
    PumpMessages();
    EXPECT_EQ(OrderOfList(), L"");
}

TEST_F(SpokenDevicesTest, TellsHowManyDevicesHaveArrived) {
    Show();
    EXPECT_EQ(TextOf(At(IDC_DISCOVERY_STATE)), L"DISCOVERED_LIST_COLUMN_SEARCHING");
    FakeAnnotations::TakeEvents();
    Deliver(FourDevices());
    EXPECT_EQ(TextOf(At(IDC_DISCOVERY_STATE)), L"DISCOVERED_DEVICES_LIST 4");
    EXPECT_TRUE(WasTold());
    Deliver(FourDevices());
    EXPECT_FALSE(WasTold());
}

TEST_F(SpokenDevicesTest, TellsThatNothingWasFound) {
    Show();
    FakeAnnotations::TakeEvents();
    page.NoPrinterFound();
    PumpMessages();
    EXPECT_EQ(TextOf(At(IDC_DISCOVERY_STATE)), L"NO_PRINTER_FOUND");
    EXPECT_TRUE(WasTold());
}

TEST_F(SpokenDevicesTest, TellsNothingWhileAnotherPageIsShown) {
    Show();
    page.ShowWindow(SW_HIDE);
    FakeAnnotations::TakeEvents();
    Deliver(FourDevices());
    EXPECT_FALSE(WasTold());
}

TEST_F(DiscoveryDlgTest, KeepsTheOrderForTheNextList) {
    Show();
    Deliver(FourDevices());
    ClickColumn(0);
    Deliver(FourDevices());
    EXPECT_THAT(Column(0), ElementsAre(L"M", L"D", L"B", L"A"));
}

TEST_F(DiscoveryDlgTest, TakesNoOrderFromAListWithoutRows) {
    Show();
    ClickColumn(0);
    Deliver(FourDevices());
    EXPECT_THAT(Column(0), ElementsAre(L"A", L"B", L"D", L"M"));
}

TEST_F(DiscoveryDlgTest, SelectsTheFirstRowForWhoComesByTheTabKey) {
    Show();
    Deliver({{.series = L"B"}, {.series = L"A"}});
    SendMessageW(At(IDC_DISCOVERY_LIST), WM_KEYUP, VK_TAB, 0);
    EXPECT_EQ(SelectedRow(), 0);
    Select(1);
    SendMessageW(At(IDC_DISCOVERY_LIST), WM_KEYUP, VK_TAB, 0);
    EXPECT_EQ(ListView_GetSelectedCount(At(IDC_DISCOVERY_LIST)), 1u);
    EXPECT_EQ(SelectedRow(), 1);
}

TEST_F(DiscoveryDlgTest, LeavesTheRowOfWhoComesByTheTabKeyToASelectedOne) {
    Show();
    Deliver({{.series = L"B"}, {.series = L"A"}});
    const HWND list = At(IDC_DISCOVERY_LIST);
    Select(0);
    ListView_SetItemState(list, 1, LVIS_FOCUSED, LVIS_FOCUSED);
    SendMessageW(list, WM_KEYUP, VK_TAB, 0);
    EXPECT_EQ(ListView_GetNextItem(list, -1, LVNI_FOCUSED), 1);
}

TEST_F(DiscoveryDlgTest, GivesTheMessageThatItGotLast) {
    EXPECT_EQ(page.GetReceivedMessage(), L"");
    page.ReceiveMessage(L"FAX");
    EXPECT_EQ(page.GetReceivedMessage(), L"FAX");
    page.ReceiveMessage(L"");
    EXPECT_EQ(page.GetReceivedMessage(), L"");
}

TEST_F(DiscoveryDlgTest, TakesADeliveryBehindItsEnd) {
    Show();
    page.DestroyWindow();
    Deliver(FourDevices());
    page.NoPrinterFound();
    EXPECT_EQ(DiscoveredDevices::GetInstance().All().size(), 4u);
}

TEST_F(DiscoveryDlgTest, SwallowsF5WhileRefreshIsShut) {
    Settings().SetString(Tag::USB_SUPPORTED, L"1");
    Show();
    Deliver(FourDevices());
    Click(IDC_DISCOVERY_USB);
    MSG key{.hwnd = At(IDCANCEL), .message = WM_KEYDOWN, .wParam = VK_F5};
    EXPECT_TRUE(page.PreTranslateMessage(&key));
    EXPECT_EQ(Column(0).size(), 4u);
}

TEST_F(DiscoveryDlgTest, ShowsTheSearchAgainOnF5) {
    Show();
    Deliver(FourDevices());
    MSG key{.hwnd = At(IDCANCEL), .message = WM_KEYDOWN, .wParam = VK_F5};
    EXPECT_TRUE(page.PreTranslateMessage(&key));
    EXPECT_THAT(Headings(), ElementsAre(L"DISCOVERED_LIST_COLUMN_SEARCHING"));
    EXPECT_FALSE(IsEnabled(IDOK));
}

}  // namespace
