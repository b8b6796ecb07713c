#include <windows.h>

#include <commctrl.h>

#include "discovery/DiscoveredDevices.h"
#include "discovery/DiscoveryDlg.h"
#include "settings/TagNames.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/ArabicUser.h"
#include "tests/windows/world/CatalogueTest.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/TestApp.h"
#include "wizard/RegisteredMessages.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

enum Id {
    listId = 1014,
    listRadio = 1015,
    usb = 1016,
    nimbojet = 1021,
    modifySearch = 1122,
    refresh = 1123,
    addPort = 1124,
    driverFrame = 1125,
    driverLabel = 1126,
    driverListId = 1127,
    configure = 1129,
    selectionText = 1130,
    firstNote = 1131,
    secondNote = 1132,
    help = 1057
};

constexpr int ascending = 1;
constexpr int descending = 0;
constexpr int unsorted = 2;

MSI_APP Driver(const std::wstring& id) {
    MSI_APP driver;
    driver.driverId = id;
    driver.driverName = id + L" driver";
    driver.isPrinterDriver = true;
    return driver;
}

// The page in a window, as the wizard puts it.
class DiscoveryDlgTest : public CatalogueTest {
protected:
    DiscoveryDlgTest() {
        std::string texts;
        for (const char* const key :
             {"DISCOVERED_LIST_COLUMN_SEARCHING", "DISCOVERED_LIST_COLUMN_MODEL",
              "DISCOVERED_LIST_COLUMN_IPADDRESS", "DISCOVERED_LIST_COLUMN_PRINTER", "NO_PRINTER_FOUND",
              "COLOR", "MONO", "SELECT_PRINT_TEXT", "SELECT_PRINTSCAN_TEXT", "DOWNLOAD_INSTALL_TITLE"}) {
            texts += std::string("<") + key + ">" + key + "</" + key + ">";
        }
        AddTexts(texts);
        Settings().SetStrings({{L"WIN8_MONO_DEFAULT", L"MONO1"},
                               {L"WIN8_COLOR_DEFAULT", L"COLOR1V4"},
                               {L"WIN8_NO_COMM_DEFAULT", L"NONE1"}});
        window.Create(IDD_TEST, nullptr);
        window.ShowWindow(SW_SHOW);
        app.SetMainWnd(&window);
        page.Create(136, &window);
    }
    ~DiscoveryDlgTest() override { DiscoveredDevices::GetInstance().Assign({}); }

    // The walk comes to the page, and the service fills the driver list.
    void Show() {
        page.ShowWindow(SW_SHOW);
        if (Settings().GetBool(Tag::INSTALL_FROM_CONFIG)) return;
        page.ClearDrivers();
        for (const wchar_t* const id : {L"NONE1", L"MONO1", L"COLOR1V4"}) page.AddDriver(Driver(id));
    }
    void Deliver(std::list<DiscoveredDevice> devices) {
        page.SetDevices(std::move(devices));
        PumpMessages();
    }
    HWND At(int id) const { return page.GetDlgItem(id); }
    bool IsShown(int id) const { return IsWindowVisible(At(id)) != FALSE; }
    bool IsEnabled(int id) const { return IsWindowEnabled(At(id)) != FALSE; }
    void Click(int id) const { SendMessageW(At(id), BM_CLICK, 0, 0); }
    std::wstring Cell(int row, int column) const {
        wchar_t text[300]{};
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 300;
        SendMessageW(At(listId), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        return text;
    }
    std::vector<std::wstring> Column(int column) const {
        std::vector<std::wstring> cells;
        for (int row = 0; row < ListView_GetItemCount(At(listId)); ++row) cells.push_back(Cell(row, column));
        return cells;
    }
    std::vector<std::wstring> Headings() const {
        std::vector<std::wstring> headings;
        for (int column = 0; column < Header_GetItemCount(ListView_GetHeader(At(listId))); ++column) {
            wchar_t text[100]{};
            HDITEMW item{.mask = HDI_TEXT, .pszText = text, .cchTextMax = 100};
            SendMessageW(ListView_GetHeader(At(listId)), HDM_GETITEMW, static_cast<WPARAM>(column),
                         reinterpret_cast<LPARAM>(&item));
            headings.emplace_back(text);
        }
        return headings;
    }
    std::vector<int> HeadingImages() const {
        std::vector<int> images;
        for (int column = 0; column < 3; ++column) {
            HDITEMW item{.mask = HDI_IMAGE | HDI_FORMAT};
            SendMessageW(ListView_GetHeader(At(listId)), HDM_GETITEMW, static_cast<WPARAM>(column),
                         reinterpret_cast<LPARAM>(&item));
            EXPECT_NE(item.fmt & HDF_BITMAP_ON_RIGHT, 0);
            images.push_back(item.iImage);
        }
        return images;
    }
    int SelectedRow() const { return ListView_GetNextItem(At(listId), -1, LVNI_SELECTED); }
    void Select(int row) const {
        ListView_SetItemState(At(listId), row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    }
    void ClickColumn(int column) const {
        NMLISTVIEW click{};
        click.hdr = {.hwndFrom = At(listId), .idFrom = listId, .code = static_cast<UINT>(LVN_COLUMNCLICK)};
        click.iItem = -1;
        click.iSubItem = column;
        page.SendMessage(WM_NOTIFY, listId, reinterpret_cast<LPARAM>(&click));
    }
    std::wstring SelectedDriver() const {
        const LRESULT entry = SendMessageW(At(driverListId), CB_GETCURSEL, 0, 0);
        wchar_t text[100]{};
        if (entry >= 0) {
            SendMessageW(At(driverListId), CB_GETLBTEXT, static_cast<WPARAM>(entry),
                         reinterpret_cast<LPARAM>(text));
        }
        return text;
    }

    TestApp app;
    CDialogEx window;
    DiscoveryDlg page;
};

std::list<DiscoveredDevice> FourDevices() {
    return {{.series = L"D", .address = L"10.0.0.10", .colour = L"color"},
            {.series = L"B", .address = L"10.0.0.9", .colour = L"mono"},
            {.model = L"M", .address = L"10.0.0.2", .colour = L"mono"},
            {.series = L"A", .address = L"10.0.0.1", .colour = L"grey"}};
}

TEST_F(DiscoveryDlgTest, BeginsWithTheSearchAndNothingChosen) {
    Show();
    EXPECT_THAT(Headings(), ElementsAre(L"DISCOVERED_LIST_COLUMN_SEARCHING"));
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_TRUE(IsEnabled(refresh) && IsEnabled(modifySearch) && IsEnabled(addPort) && IsEnabled(IDCANCEL));
    EXPECT_FALSE(IsShown(firstNote) || IsShown(help) || IsShown(configure));
    EXPECT_TRUE(IsShown(secondNote));
    EXPECT_EQ(IsDlgButtonChecked(page.GetSafeHwnd(), usb), static_cast<UINT>(BST_UNCHECKED));
    EXPECT_TRUE(Settings().GetBool(L"DISCOVERY_DONE"));
}

TEST_F(DiscoveryDlgTest, ShowsADeviceBySeriesAddressAndColour) {
    Show();
    Deliver(FourDevices());
    EXPECT_THAT(Headings(), ElementsAre(L"DISCOVERED_LIST_COLUMN_MODEL", L"DISCOVERED_LIST_COLUMN_IPADDRESS",
                                        L"DISCOVERED_LIST_COLUMN_PRINTER"));
    EXPECT_THAT(Column(0), ElementsAre(L"A", L"B", L"D", L"M"));
    EXPECT_THAT(Column(1), ElementsAre(L"10.0.0.1", L"10.0.0.9", L"10.0.0.10", L"10.0.0.2"));
    EXPECT_THAT(Column(2), ElementsAre(L"", L"MONO", L"COLOR", L"MONO"));
    EXPECT_EQ(ListView_GetColumnWidth(At(listId), 0), 220);
}

TEST_F(DiscoveryDlgTest, SelectsTheFourthRow) {
    Show();
    Deliver(FourDevices());
    EXPECT_EQ(SelectedRow(), 3);
    EXPECT_TRUE(IsEnabled(IDOK));
    EXPECT_EQ(GetFocus(), At(listId));
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
    // The marked address is none of the devices', so nothing is known of this one.
    EXPECT_EQ(TextOf(At(selectionText)), L"SELECT_PRINT_TEXT");
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
    EXPECT_EQ(TextOf(At(selectionText)), GetParam().key);
}

INSTANTIATE_TEST_SUITE_P(Devices, SelectionTextTest,
                         testing::Values(SelectionCase{true, true, L"DOWNLOAD_INSTALL_TITLE"},
                                         SelectionCase{true, false, L"SELECT_PRINTSCAN_TEXT"},
                                         SelectionCase{false, true, L"SELECT_PRINT_TEXT"},
                                         SelectionCase{false, false, L"SELECT_PRINT_TEXT"}));

TEST_F(DiscoveryDlgTest, LetsTheLastDeviceWithAnAddressSpeakForIt) {
    Show();
    Deliver({{.series = L"A", .address = L"10.0.0.1", .isMultiFunction = true},
             {.series = L"B", .address = L"10.0.0.1"}});
    Select(0);
    EXPECT_EQ(TextOf(At(selectionText)), L"SELECT_PRINT_TEXT");
}

TEST_F(DiscoveryDlgTest, ProposesTheDriverOfTheColour) {
    Show();
    Deliver(FourDevices());
    Select(1);
    EXPECT_EQ(SelectedDriver(), L"MONO1 driver");
    Select(2);
    EXPECT_EQ(SelectedDriver(), L"COLOR1V4 driver");
    Select(0);
    EXPECT_EQ(SelectedDriver(), L"NONE1 driver");
}

TEST_F(DiscoveryDlgTest, ProposesTheDriverWithoutAColourForARowThatShowsAModel) {
    Show();
    Deliver({{.model = L"M", .address = L"10.0.0.2", .colour = L"mono"}});
    Select(0);
    EXPECT_EQ(SelectedDriver(), L"NONE1 driver");
}

TEST_F(DiscoveryDlgTest, ProposesTheDriverThatThePackageNames) {
    Settings().SetString(L"MODEL_DEFAULT_OVERRIDE", L"B:COLOR1V4;");
    Show();
    Deliver(FourDevices());
    Select(1);
    EXPECT_EQ(SelectedDriver(), L"COLOR1V4 driver");
}

TEST_F(DiscoveryDlgTest, KeepsTheDriverWhenThePackageNamesOneThatThereIsNot) {
    Settings().SetString(L"MODEL_DEFAULT_OVERRIDE", L"A:color1v4;");
    Show();
    Deliver(FourDevices());
    Select(1);
    Select(0);
    EXPECT_EQ(SelectedDriver(), L"MONO1 driver");
}

TEST_F(DiscoveryDlgTest, DropsAConfigurationWithTheDriver) {
    Settings().SetString(L"DRIVERCONFIG_PATH", L"C:\\a.zdc");
    Show();
    Deliver(FourDevices());
    EXPECT_EQ(Settings().GetString(L"DRIVERCONFIG_PATH"), L"");
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
    SendMessageW(At(listId), WM_KEYUP, VK_TAB, 0);
    EXPECT_EQ(SelectedRow(), 0);
    Select(1);
    SendMessageW(At(listId), WM_KEYUP, VK_TAB, 0);
    EXPECT_EQ(ListView_GetSelectedCount(At(listId)), 1u);
    EXPECT_EQ(SelectedRow(), 1);
}

TEST_F(DiscoveryDlgTest, HidesTheDriverChoiceWhileThereAreNoDrivers) {
    page.ShowWindow(SW_SHOW);
    for (const int id : {driverListId, driverFrame, driverLabel, configure}) EXPECT_FALSE(IsShown(id)) << id;
    EXPECT_FALSE(IsEnabled(driverLabel));
    page.AddDriver(Driver(L"X"));
    for (const int id : {driverListId, driverFrame, driverLabel}) EXPECT_TRUE(IsShown(id)) << id;
    EXPECT_TRUE(IsEnabled(driverLabel));
}

TEST_F(DiscoveryDlgTest, OffersTheConfigurationWhereThePackageHasATool) {
    tree.Add(L"Install\\MakerDriverConfig.msi");
    Show();
    EXPECT_TRUE(IsShown(configure));
}

TEST_F(DiscoveryDlgTest, OffersTheConfigurationAsSoonAsADriverHasATool) {
    tree.Add(L"Install\\MakerDriverConfig.msi");
    page.ShowWindow(SW_SHOW);
    page.AddDriver(Driver(L"FirstV4"));
    EXPECT_FALSE(IsShown(configure));
    page.AddDriver(Driver(L"Second"));
    EXPECT_TRUE(IsShown(configure));
}

TEST_F(DiscoveryDlgTest, HidesTheDriverListInARunFromConfiguration) {
    Settings().SetBool(Tag::INSTALL_FROM_CONFIG, true);
    Show();
    EXPECT_FALSE(IsShown(driverListId) || IsShown(configure));
}

TEST_F(DiscoveryDlgTest, HidesTheChoicesInTheSecondVariant) {
    Settings().SetStrings({{L"AMAZON_SUPPORTED", L"TRUE"}, {L"USB_SUPPORTED", L"1"}});
    Show();
    for (const int id : {driverListId, driverFrame, driverLabel, configure, usb, nimbojet}) {
        EXPECT_FALSE(IsShown(id)) << id;
    }
    EXPECT_FALSE(IsEnabled(usb) || IsEnabled(nimbojet) || IsEnabled(driverLabel));
}

TEST_F(DiscoveryDlgTest, OffersUsbToThePackagesThatAskForIt) {
    Settings().SetString(L"USB_SUPPORTED", L"1");
    Show();
    EXPECT_TRUE(IsShown(usb) && IsEnabled(usb));
    EXPECT_FALSE(IsShown(nimbojet) || IsEnabled(nimbojet));
}

TEST_F(DiscoveryDlgTest, OffersNoUsbForAnyOtherValue) {
    Settings().SetString(L"USB_SUPPORTED", L"true");
    Show();
    EXPECT_FALSE(IsShown(usb) || IsEnabled(usb));
}

TEST_F(DiscoveryDlgTest, OffersTheNimbojetThatThePackageHas) {
    AddPackage(L"Applications", L"n.msi").properties[L"APPTYPE"] = L"NIMBOJET";
    BuildCatalogues();
    Show();
    EXPECT_TRUE(IsShown(nimbojet) && IsEnabled(nimbojet));
}

class RadioTest : public DiscoveryDlgTest, public testing::WithParamInterface<int> {
protected:
    RadioTest() {
        Settings().SetString(L"USB_SUPPORTED", L"1");
        AddPackage(L"Applications", L"n.msi").properties[L"APPTYPE"] = L"NIMBOJET";
        BuildCatalogues();
    }
};

TEST_P(RadioTest, OpensNextAndShutsTheSearch) {
    Show();
    Click(GetParam());
    EXPECT_TRUE(IsEnabled(IDOK));
    for (const int id : {listId, refresh, modifySearch, addPort}) EXPECT_FALSE(IsEnabled(id)) << id;
    EXPECT_EQ(SelectedDriver(), L"NONE1 driver");
}

TEST_P(RadioTest, LeavesTheSelectedRow) {
    Show();
    Deliver(FourDevices());
    Click(GetParam());
    EXPECT_EQ(SelectedRow(), 3);
}

TEST_P(RadioTest, IsNotChosenByTheFocusAlone) {
    Show();
    SetFocus(At(IDCANCEL));
    SetFocus(At(GetParam()));
    EXPECT_TRUE(IsEnabled(listId));
}

TEST_P(RadioTest, GivesWayToTheCommandThatHasNoControl) {
    Show();
    Deliver(FourDevices());
    Click(GetParam());
    page.SendMessage(WM_COMMAND, MAKEWPARAM(listRadio, BN_CLICKED));
    for (const int id : {+listId, +refresh, +modifySearch, +addPort, IDOK}) EXPECT_TRUE(IsEnabled(id)) << id;
    EXPECT_EQ(At(listRadio), nullptr);
    EXPECT_EQ(SelectedDriver(), L"NONE1 driver");
    EXPECT_EQ(GetFocus(), At(listId));
}

TEST_P(RadioTest, KeepsNextOpenWhenAListArrives) {
    Show();
    Click(GetParam());
    page.NoPrinterFound();
    PumpMessages();
    EXPECT_TRUE(IsEnabled(IDOK));
}

INSTANTIATE_TEST_SUITE_P(Connections, RadioTest, testing::Values(usb, nimbojet));

TEST_F(DiscoveryDlgTest, ClosesNextForTheCommandThatHasNoControlWithoutARow) {
    Show();
    EnableWindow(At(IDOK), TRUE);
    page.SendMessage(WM_COMMAND, MAKEWPARAM(listRadio, BN_CLICKED));
    EXPECT_FALSE(IsEnabled(IDOK));
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
    Settings().SetString(L"USB_SUPPORTED", L"1");
    Show();
    Deliver(FourDevices());
    Click(usb);
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
