#include "discovery/DiscoveryListCtrl.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "CommonLib/Files.h"
#include "CommonLib/IpAddress.h"
#include "discovery/RowOrder.h"
#include "framework/CImage.h"
#include "framework/Handles.h"
#include "framework/HeldDrawing.h"
#include "framework/Resolution.h"
#include "framework/Spoken.h"
#include "framework/SystemLibrary.h"
#include "settings/ColourWords.h"
#include "settings/TextExpansion.h"
#include "settings/TextKeys.h"

namespace {

constexpr int nameColumn = 0;
constexpr int addressColumn = 1;
constexpr int lastColumn = 2;

constexpr std::array headingKeys = {TextKey::DISCOVERED_LIST_COLUMN_MODEL,
                                    TextKey::DISCOVERED_LIST_COLUMN_IPADDRESS,
                                    TextKey::DISCOVERED_LIST_COLUMN_PRINTER};

// In pixels of a screen with 96 to the inch.
constexpr int nameWidth = 220;
constexpr int addedWidth = 100;

constexpr int imageSize = 16;
constexpr int ascendingImage = 1;
constexpr int descendingImage = 0;
constexpr int unsortedImage = 2;

std::wstring ShownAddress(const std::wstring& address) {
    return IsRightToLeftLocale() ? OverrideLeftToRight(address) : address;
}

int Scaled(int pixels, HWND window) {
    return MulDiv(pixels, ResolutionOf(window), plainResolution);
}

struct Sorting {
    std::vector<SortedCell> cells;
    bool ascending;
};

int CALLBACK CompareRows(LPARAM first, LPARAM second, LPARAM sorting) {
    const Sorting& order = *reinterpret_cast<const Sorting*>(sorting);
    return CompareCells(order.cells[static_cast<std::size_t>(first)],
                        order.cells[static_cast<std::size_t>(second)], order.ascending);
}

}  // namespace

const MessageMap& DiscoveryListCtrl::GetMessageMap() const {
    static const MessageMap map(
        &Events(), {EventsOf<DiscoveryListCtrl>::Message(WM_KEYUP, &DiscoveryListCtrl::OnKeyUp)});
    return map;
}

std::wstring DiscoveryListCtrl::ShownColour(const std::wstring& colour) const {
    if (colour == ColourClass::color) return localizer.GetString(TextKey::COLOR);
    if (colour == ColourClass::mono) return localizer.GetString(TextKey::MONO);
    return {};
}

void DiscoveryListCtrl::ShowMessage(const std::wstring& heading) {
    DeleteAllItems();
    DeleteAllColumns();
    rows.clear();
    InsertColumn(0, heading);
    FitColumnToHeading(0);
    SetSpokenDescription(GetSafeHwnd(), {});
}

void DiscoveryListCtrl::ShowDevices(const std::list<DiscoveredDevice>& devices) {
    {
        const HeldDrawing held(*this);
        DeleteAllItems();
        DeleteAllColumns();
        rows.clear();
        InsertColumns();
        for (const DiscoveredDevice& device : devices) {
            InsertRow({device.series.empty() ? device.model : device.series, device.address,
                       ShownColour(device.colour)});
        }
        if (!images) LoadImages();
        if (Sort()) ShowOrder();
        FocusARow();
    }
    UpdateWindow(GetSafeHwnd());
}

void DiscoveryListCtrl::InsertColumns() {
    for (std::size_t column = 0; column < headingKeys.size(); ++column)
        InsertColumn(static_cast<int>(column), localizer.GetString(headingKeys[column]));
    SetColumnWidth(nameColumn, Scaled(nameWidth, GetSafeHwnd()));
    FitColumnToHeading(addressColumn);
    SetColumnWidth(addressColumn, GetColumnWidth(addressColumn) + Scaled(addedWidth, GetSafeHwnd()));
    FitColumnToHeading(lastColumn);
}

void DiscoveryListCtrl::InsertRow(const Row& row) {
    const int index = static_cast<int>(rows.size());
    InsertItem(index, row[nameColumn], index);
    SetItemText(index, addressColumn, ShownAddress(row[addressColumn]));
    SetItemText(index, lastColumn, row[lastColumn]);
    rows.push_back(row);
}

void DiscoveryListCtrl::OnColumnClick(int column) {
    if (GetItemCount() == 0) return;
    sortAscending = column != sortColumn || !sortAscending;
    sortColumn = column;
    if (Sort()) ShowOrder();
}

bool DiscoveryListCtrl::Sort() {
    // Loaded for the length of the sort, or each cell's check would load it anew.
    const Library network = LoadSystemLibrary(L"Ws2_32.dll");
    Sorting sorting{.cells = {}, .ascending = sortAscending};
    sorting.cells.reserve(rows.size());
    for (const Row& row : rows) {
        const std::wstring& text = row.at(static_cast<std::size_t>(sortColumn));
        sorting.cells.push_back({.text = text, .isAddress = IsValidIpAddress(text) == 1});
    }
    return ListView_SortItems(GetSafeHwnd(), &CompareRows, reinterpret_cast<LPARAM>(&sorting)) != FALSE;
}

void DiscoveryListCtrl::LoadImages() {
    const int size = Scaled(imageSize, GetSafeHwnd());
    images.reset(ImageList_Create(size, size, ILC_COLOR32, columnCount, 0));
    for (const wchar_t* const name : {L"bullet_arrow_up", L"bullet_arrow_down", L"bullet_toggle_plus"}) {
        ATL::CImage image;
        // The headings go without pictures rather than with the wrong ones.
        if (!image.LoadToFill(GetPicturePath(std::wstring(name) + L".png"), {size, size})) return;
        ImageList_Add(images.get(), image.GetBitmap(), nullptr);
    }
    Header_SetImageList(ListView_GetHeader(GetSafeHwnd()), images.get());
}

void DiscoveryListCtrl::ShowOrder() {
    for (int column = 0; column < GetColumnCount(); ++column) {
        HDITEMW item{.mask = HDI_IMAGE | HDI_FORMAT};
        item.fmt = HDF_STRING | HDF_LEFT | HDF_IMAGE | HDF_BITMAP_ON_RIGHT;
        item.iImage = unsortedImage;
        if (column == sortColumn) item.iImage = sortAscending ? ascendingImage : descendingImage;
        ::SendMessageW(ListView_GetHeader(GetSafeHwnd()), HDM_SETITEMW, static_cast<WPARAM>(column),
                       reinterpret_cast<LPARAM>(&item));
    }
    SetSpokenDescription(GetSafeHwnd(), SpokenOrder());
}

std::wstring DiscoveryListCtrl::SpokenOrder() const {
    const std::wstring order = localizer.GetString(sortAscending ? TextKey::DISCOVERED_LIST_ASCENDING
                                                                 : TextKey::DISCOVERED_LIST_DESCENDING);
    return order.empty()
               ? order
               : localizer.GetString(headingKeys.at(static_cast<std::size_t>(sortColumn))) + L", " + order;
}

std::wstring DiscoveryListCtrl::SelectedName() const {
    return SelectedText(nameColumn);
}

std::wstring DiscoveryListCtrl::SelectedAddress() const {
    return SelectedText(addressColumn);
}

std::wstring DiscoveryListCtrl::SelectedText(std::size_t column) const {
    const int row = SelectedRow();
    return row < 0 ? std::wstring() : rows.at(static_cast<std::size_t>(GetItemData(row))).at(column);
}

// Who reaches the list by the keyboard finds a row there.
LRESULT DiscoveryListCtrl::OnKeyUp(WPARAM key, LPARAM) {
    if (key == VK_TAB && GetItemCount() > 0 && SelectedRow() < 0) {
        SelectRow(0);
        SetFocus();
        ListView_EnsureVisible(GetSafeHwnd(), 0, FALSE);
    }
    return Default();
}
