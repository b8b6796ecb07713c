#include "tests/windows/world/DevicesPageWorld.h"

#include <utility>

#include "discovery/DiscoveredDevices.h"
#include "resources/resource.h"
#include "settings/TagNames.h"
#include "tests/windows/resource.h"

MSI_APP Driver(const std::wstring& id) {
    MSI_APP driver;
    driver.driverId = id;
    driver.driverName = id + L" driver";
    driver.isPrinterDriver = true;
    return driver;
}

DevicesPageWorld::DevicesPageWorld() {
    std::string texts;
    for (const char* const key :
         {"DISCOVERED_LIST_COLUMN_SEARCHING", "DISCOVERED_LIST_COLUMN_MODEL",
          "DISCOVERED_LIST_COLUMN_IPADDRESS", "DISCOVERED_LIST_COLUMN_PRINTER", "NO_PRINTER_FOUND", "COLOR",
          "DISCOVERED_DEVICES_LIST", "DISCOVERED_LIST_ASCENDING", "DISCOVERED_LIST_DESCENDING", "MONO",
          "SELECT_PRINT_TEXT", "SELECT_PRINTSCAN_TEXT", "DOWNLOAD_INSTALL_TITLE"}) {
        texts += std::string("<") + key + ">" + key + "</" + key + ">";
    }
    AddTexts(texts);
    Settings().SetStrings({{TextTag(L"WIN8_MONO_DEFAULT"), L"MONO1"},
                           {TextTag(L"WIN8_COLOR_DEFAULT"), L"COLOR1V4"},
                           {TextTag(L"WIN8_NO_COMM_DEFAULT"), L"NONE1"}});
    EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
    window.ShowWindow(SW_SHOW);
    app.SetMainWnd(&window);
    EXPECT_TRUE(page.Create(IDD_DISCOVERY, &window));
}

DevicesPageWorld::~DevicesPageWorld() {
    DiscoveredDevices::GetInstance().Assign({});
}

void DevicesPageWorld::Show() {
    page.ShowWindow(SW_SHOW);
    if (Settings().GetBool(Tag::INSTALL_FROM_CONFIG)) return;
    page.ClearDrivers();
    for (const wchar_t* const id : {L"NONE1", L"MONO1", L"COLOR1V4"}) page.AddDriver(Driver(id));
}

void DevicesPageWorld::Deliver(std::list<DiscoveredDevice> devices) {
    page.SetDevices(std::move(devices));
    PumpMessages();
}

std::wstring DevicesPageWorld::Cell(int row, int column) const {
    wchar_t text[300]{};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 300;
    SendMessageW(At(IDC_DISCOVERY_LIST), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&item));
    return text;
}

std::vector<std::wstring> DevicesPageWorld::Column(int column) const {
    std::vector<std::wstring> cells;
    for (int row = 0; row < ListView_GetItemCount(At(IDC_DISCOVERY_LIST)); ++row)
        cells.push_back(Cell(row, column));
    return cells;
}

std::vector<std::wstring> DevicesPageWorld::Headings() const {
    std::vector<std::wstring> headings;
    for (int column = 0; column < Header_GetItemCount(ListView_GetHeader(At(IDC_DISCOVERY_LIST))); ++column) {
        wchar_t text[100]{};
        HDITEMW item{.mask = HDI_TEXT, .pszText = text, .cchTextMax = 100};
        SendMessageW(ListView_GetHeader(At(IDC_DISCOVERY_LIST)), HDM_GETITEMW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&item));
        headings.emplace_back(text);
    }
    return headings;
}

std::vector<int> DevicesPageWorld::HeadingImages() const {
    std::vector<int> images;
    for (int column = 0; column < 3; ++column) {
        HDITEMW item{.mask = HDI_IMAGE | HDI_FORMAT};
        SendMessageW(ListView_GetHeader(At(IDC_DISCOVERY_LIST)), HDM_GETITEMW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&item));
        EXPECT_NE(item.fmt & HDF_BITMAP_ON_RIGHT, 0);
        images.push_back(item.iImage);
    }
    return images;
}

void DevicesPageWorld::Select(int row) const {
    ListView_SetItemState(At(IDC_DISCOVERY_LIST), row, LVIS_SELECTED | LVIS_FOCUSED,
                          LVIS_SELECTED | LVIS_FOCUSED);
}

void DevicesPageWorld::ClickColumn(int column) const {
    NMLISTVIEW click{};
    click.hdr = {.hwndFrom = At(IDC_DISCOVERY_LIST),
                 .idFrom = IDC_DISCOVERY_LIST,
                 .code = static_cast<UINT>(LVN_COLUMNCLICK)};
    click.iItem = -1;
    click.iSubItem = column;
    page.SendMessage(WM_NOTIFY, IDC_DISCOVERY_LIST, reinterpret_cast<LPARAM>(&click));
}

std::wstring DevicesPageWorld::SelectedDriver() const {
    const LRESULT entry = SendMessageW(At(IDC_DISCOVERY_DRIVER_LIST), CB_GETCURSEL, 0, 0);
    wchar_t text[100]{};
    if (entry >= 0) {
        SendMessageW(At(IDC_DISCOVERY_DRIVER_LIST), CB_GETLBTEXT, static_cast<WPARAM>(entry),
                     reinterpret_cast<LPARAM>(text));
    }
    return text;
}

std::list<DiscoveredDevice> FourDevices() {
    return {{.series = L"D", .address = L"10.0.0.10", .colour = L"color"},
            {.series = L"B", .address = L"10.0.0.9", .colour = L"mono"},
            {.model = L"M", .address = L"10.0.0.2", .colour = L"mono"},
            {.series = L"A", .address = L"10.0.0.1", .colour = L"grey"}};
}
