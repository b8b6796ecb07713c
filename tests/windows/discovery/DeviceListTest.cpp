// The list of devices under the hands of a user: what is selected, where it is scrolled to, what typing
// finds.

#include <array>
#include <limits>

#include "resources/resource.h"
#include "tests/windows/world/DevicesPageWorld.h"
#include "tests/windows/world/FakeAnnotations.h"

namespace {

using testing::ElementsAre;

class DeviceListTest : public DevicesPageWorld {
protected:
    HWND List() const { return At(IDC_DISCOVERY_LIST); }
    int FocusedRow() const { return ListView_GetNextItem(List(), -1, LVNI_FOCUSED); }
    std::wstring SelectedName() const { return Cell(SelectedRow(), 0); }

    void Type(std::wstring_view letters) const {
        constexpr LPARAM once = 1;
        for (const wchar_t letter : letters) SendMessageW(List(), WM_CHAR, letter, once);
    }
    // The row that a program finds which asks the list.
    int Find(const wchar_t* text, UINT how, int behind = -1) const {
        LVFINDINFOW wanted{.flags = how, .psz = text};
        return static_cast<int>(SendMessageW(List(), LVM_FINDITEMW, static_cast<WPARAM>(behind),
                                             reinterpret_cast<LPARAM>(&wanted)));
    }
    void PickDriver(WPARAM entry) const {
        SendMessageW(At(IDC_DISCOVERY_DRIVER_LIST), CB_SETCURSEL, entry, 0);
        page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_DISCOVERY_DRIVER_LIST, CBN_SELCHANGE),
                         reinterpret_cast<LPARAM>(At(IDC_DISCOVERY_DRIVER_LIST)));
    }
    void DeliverTrees() {
        Deliver({{.series = L"Birch 2"}, {.series = L"birch 3"}, {.series = L"Alder"}, {.series = L"Cedar"}});
    }
    void DeliverMany(int count) {
        std::list<DiscoveredDevice> devices;
        for (int number = 0; number < count; ++number)
            devices.push_back({.series = L"Series " + std::to_wstring(1000 + number),
                               .address = L"10.0.0." + std::to_wstring(number)});
        Deliver(std::move(devices));
    }
};

TEST_F(DeviceListTest, KeepsTheSelectionOnItsDeviceWhenItIsSorted) {
    Show();
    Deliver(FourDevices());
    Select(0);
    ClickColumn(0);
    EXPECT_THAT(Column(0), ElementsAre(L"M", L"D", L"B", L"A"));
    EXPECT_EQ(SelectedRow(), 3);
    EXPECT_EQ(FocusedRow(), 3);
    EXPECT_EQ(ListView_GetSelectedCount(List()), 1U);
    EXPECT_EQ(SelectedName(), L"A");
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(DeviceListTest, KeepsTheFocusOnItsDeviceWhenItIsSortedWithoutASelection) {
    Show();
    Deliver({{.series = L"A"}, {.series = L"B"}, {.series = L"C"}});
    ListView_SetItemState(List(), 0, LVIS_FOCUSED, LVIS_FOCUSED);
    ClickColumn(0);
    EXPECT_EQ(FocusedRow(), 2);
    EXPECT_EQ(SelectedRow(), -1);
}

TEST_F(DeviceListTest, LeavesTheDriverThatTheUserPickedWhenItIsSorted) {
    Show();
    Deliver(FourDevices());
    Select(0);
    PickDriver(1);
    EXPECT_EQ(SelectedDriver(), L"MONO1 driver");
    ClickColumn(0);
    EXPECT_EQ(SelectedDriver(), L"MONO1 driver");
}

TEST_F(DeviceListTest, StaysWhereItIsScrolledToWhenItIsSorted) {
    Show();
    DeliverMany(100);
    ListView_EnsureVisible(List(), 60, FALSE);
    const int top = ListView_GetTopIndex(List());
    ASSERT_GT(top, 0);
    ClickColumn(0);
    EXPECT_EQ(ListView_GetTopIndex(List()), top);
    EXPECT_EQ(SelectedRow(), 96);
}

TEST_F(DeviceListTest, KeepsTheFormerOrderAmongEquals) {
    Show();
    Deliver({{.series = L"A", .address = L"10.0.0.1", .colour = L"color"},
             {.series = L"B", .address = L"10.0.0.2", .colour = L"mono"},
             {.series = L"C", .address = L"10.0.0.3", .colour = L"color"},
             {.series = L"D", .address = L"10.0.0.4", .colour = L"mono"}});
    ClickColumn(0);
    ClickColumn(2);
    EXPECT_THAT(Column(0), ElementsAre(L"C", L"A", L"D", L"B"));
    ClickColumn(2);
    EXPECT_THAT(Column(0), ElementsAre(L"D", L"B", L"C", L"A"));
}

TEST_F(DeviceListTest, FindsADeviceByItsFirstLetterWhateverItsCase) {
    Show();
    DeliverTrees();
    EXPECT_THAT(Column(0), ElementsAre(L"Alder", L"Birch 2", L"Cedar", L"birch 3"));
    Select(0);
    Type(L"b");
    EXPECT_EQ(SelectedName(), L"Birch 2");
    EXPECT_EQ(FocusedRow(), 1);
}

TEST_F(DeviceListTest, FindsADeviceAboveTheSelectedOne) {
    Show();
    DeliverTrees();
    Select(2);
    Type(L"a");
    EXPECT_EQ(SelectedName(), L"Alder");
}

TEST_F(DeviceListTest, StaysWhereNoDeviceBeginsWithWhatIsTyped) {
    Show();
    DeliverTrees();
    Select(2);
    Type(L"x");
    EXPECT_EQ(SelectedName(), L"Cedar");
}

TEST_F(DeviceListTest, AnswersWhoAsksForARowByItsText) {
    Show();
    DeliverTrees();
    EXPECT_EQ(Find(L"cedar", LVFI_STRING), 2);
    EXPECT_EQ(Find(L"Ced", LVFI_STRING), -1);
    EXPECT_EQ(Find(L"Ced", LVFI_STRING | LVFI_PARTIAL), 2);
    EXPECT_EQ(Find(L"Ced", 4), 2);
    EXPECT_EQ(Find(L"Cedar wood", LVFI_STRING | LVFI_PARTIAL), -1);
    EXPECT_EQ(Find(L"b", LVFI_STRING | LVFI_PARTIAL, 1), 3);
    EXPECT_EQ(Find(L"a", LVFI_STRING | LVFI_PARTIAL, 0), -1);
    EXPECT_EQ(Find(L"a", LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP, 0), 0);
}

TEST_F(DeviceListTest, KnowsNoRowByAnythingButItsText) {
    Show();
    DeliverTrees();
    EXPECT_EQ(Find(L"Cedar", LVFI_PARAM), -1);
}

TEST_F(DeviceListTest, AnswersWhoAsksForRowsBehindOneThatThereIsNot) {
    Show();
    DeliverTrees();
    EXPECT_EQ(Find(L"a", LVFI_STRING | LVFI_PARTIAL, -5), 0);
    EXPECT_EQ(Find(L"a", LVFI_STRING | LVFI_PARTIAL, std::numeric_limits<int>::max()), -1);
    EXPECT_EQ(Find(L"a", LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP, std::numeric_limits<int>::max()), 0);
    EXPECT_THAT(app.Exceptions(), testing::IsEmpty());
}

TEST_F(DeviceListTest, CutsATextForWhoHasLittleRoomForIt) {
    Show();
    DeliverTrees();
    wchar_t text[4]{};
    LVITEMW item{.pszText = text, .cchTextMax = 4};
    SendMessageW(List(), LVM_GETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_STREQ(text, L"Ald");
}

TEST_F(DeviceListTest, WritesNothingForWhoAsksForNoText) {
    Show();
    Deliver({{.series = L"Alder"}});
    std::array<wchar_t, 8> text{L"before"};
    NMLVDISPINFOW question{};
    question.hdr = {.hwndFrom = List(), .idFrom = IDC_DISCOVERY_LIST, .code = LVN_GETDISPINFOW};
    question.item = {.mask = LVIF_IMAGE};
    question.item.pszText = text.data();
    question.item.cchTextMax = static_cast<int>(text.size());
    page.SendMessage(WM_NOTIFY, IDC_DISCOVERY_LIST, reinterpret_cast<LPARAM>(&question));
    EXPECT_STREQ(text.data(), L"before");
    question.item.mask = LVIF_TEXT;
    page.SendMessage(WM_NOTIFY, IDC_DISCOVERY_LIST, reinterpret_cast<LPARAM>(&question));
    EXPECT_STREQ(text.data(), L"Alder");
}

TEST_F(DeviceListTest, HasNoTextInAColumnThatThereIsNot) {
    Show();
    DeliverTrees();
    EXPECT_EQ(Cell(0, 3), L"");
    EXPECT_EQ(Cell(0, -1), L"");
    EXPECT_EQ(Cell(4, 0), L"");
    EXPECT_THAT(app.Exceptions(), testing::IsEmpty());
}

TEST_F(DeviceListTest, TellsThatOtherRowsStandInIt) {
    const FakeAnnotations annotations;
    const auto newRows = testing::Contains(std::pair<DWORD, HWND>(EVENT_OBJECT_REORDER, List()));
    Show();
    Deliver(FourDevices());
    EXPECT_THAT(FakeAnnotations::TakeEvents(), newRows);
    ClickColumn(0);
    EXPECT_THAT(FakeAnnotations::TakeEvents(), newRows);
}

TEST_F(DeviceListTest, HasABarBesideManyDevicesAndNoneBelowThem) {
    Show();
    DeliverMany(100);
    const LONG_PTR style = GetWindowLongPtrW(List(), GWL_STYLE);
    EXPECT_NE(style & WS_VSCROLL, 0);
    EXPECT_EQ(style & WS_HSCROLL, 0);
}

TEST_F(DeviceListTest, ShowsTheFirstRowsOfANewListAfterALongOne) {
    Show();
    DeliverMany(100);
    ListView_EnsureVisible(List(), 99, FALSE);
    DeliverMany(50);
    EXPECT_EQ(ListView_GetTopIndex(List()), 0);
    EXPECT_EQ(SelectedRow(), 3);
}

}  // namespace
