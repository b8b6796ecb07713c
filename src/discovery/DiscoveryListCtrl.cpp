#include "discovery/DiscoveryListCtrl.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <string_view>

#include "CommonLib/Files.h"
#include "CommonLib/IpAddress.h"
#include "discovery/RowOrder.h"
#include "framework/CImage.h"
#include "framework/HeldDrawing.h"
#include "framework/Resolution.h"
#include "framework/Spoken.h"
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

// The same as LVFI_PARTIAL, since Windows Vista.
constexpr UINT findSubstring = 4;
constexpr UINT findBeginning = LVFI_PARTIAL | findSubstring;

// Whether a text is what is searched for, or begins with it where that is enough; in any case of its letters.
bool IsWanted(std::wstring_view text, const LVFINDINFOW& wanted) {
    const std::wstring_view part = wanted.psz;
    if ((wanted.flags & findBeginning) != 0) text = text.substr(0, part.size());
    return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, text.data(), static_cast<int>(text.size()),
                          part.data(), static_cast<int>(part.size())) == CSTR_EQUAL;
}

}  // namespace

const MessageMap& DiscoveryListCtrl::GetMessageMap() const {
    using On = EventsOf<DiscoveryListCtrl>;
    static const MessageMap map(&Events(),
                                {
                                    On::Message(WM_KEYUP, &DiscoveryListCtrl::OnKeyUp),
                                    On::Message(LVM_FINDITEMW, &DiscoveryListCtrl::OnFindItem),
                                    On::OwnNotify(LVN_GETDISPINFOW, &DiscoveryListCtrl::OnTextAsked),
                                    On::OwnNotify(LVN_ODFINDITEMW, &DiscoveryListCtrl::OnRowAsked),
                                });
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
    TakeRows({});
    InsertColumn(0, heading);
    FitColumnToHeading(0);
    SetSpokenDescription(GetSafeHwnd(), {});
}

void DiscoveryListCtrl::ShowDevices(const std::list<DiscoveredDevice>& devices) {
    {
        const HeldDrawing held(*this);
        DeleteAllItems();
        DeleteAllColumns();
        InsertColumns();
        TakeRows(devices);
        if (!images) LoadImages();
        Sort();
        SetItemCount(static_cast<int>(order.size()));
        ShowOrder();
        FocusARow();
    }
    // The rows may have brought a bar beside them.
    FitColumnToHeading(lastColumn);
    UpdateWindow(GetSafeHwnd());
}

void DiscoveryListCtrl::InsertColumns() {
    for (std::size_t column = 0; column < headingKeys.size(); ++column)
        InsertColumn(static_cast<int>(column), localizer.GetString(headingKeys[column]));
    SetColumnWidth(nameColumn, Scaled(nameWidth, GetSafeHwnd()));
    FitColumnToHeading(addressColumn);
    SetColumnWidth(addressColumn, GetColumnWidth(addressColumn) + Scaled(addedWidth, GetSafeHwnd()));
}

void DiscoveryListCtrl::TakeRows(const std::list<DiscoveredDevice>& devices) {
    // A text is looked up once: the devices are many, and their colours few.
    std::map<std::wstring_view, std::wstring> colours;
    rows.clear();
    rows.reserve(devices.size());
    for (const DiscoveredDevice& device : devices) {
        if (!colours.contains(device.colour)) colours[device.colour] = ShownColour(device.colour);
        rows.push_back(
            {device.series.empty() ? device.model : device.series, device.address, colours[device.colour]});
    }
    order.resize(rows.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
}

LRESULT DiscoveryListCtrl::OnTextAsked(NMHDR& header) {
    const LVITEMW& item = reinterpret_cast<const NMLVDISPINFOW&>(header).item;
    if ((item.mask & LVIF_TEXT) != 0) lstrcpynW(item.pszText, ShownText(item).c_str(), item.cchTextMax);
    return 0;
}

std::wstring DiscoveryListCtrl::ShownText(const LVITEMW& item) const {
    // Anybody may ask the control for any column.
    if (static_cast<std::size_t>(item.iSubItem) >= columnCount) return {};
    const std::wstring& text = RowAt(item.iItem)[static_cast<std::size_t>(item.iSubItem)];
    return item.iSubItem == addressColumn ? ShownAddress(text) : text;
}

// The control asks for who types.
LRESULT DiscoveryListCtrl::OnRowAsked(NMHDR& header) {
    const auto& search = reinterpret_cast<const NMLVFINDITEMW&>(header);
    return FindRow(search.lvfi, search.iStart);
}

// A program asks for what is behind a row. Some versions of the control ask on as if that row counted.
LRESULT DiscoveryListCtrl::OnFindItem(WPARAM behind, LPARAM wanted) {
    const int row = std::clamp(static_cast<int>(behind), -1, GetItemCount() - 1);
    return FindRow(*reinterpret_cast<const LVFINDINFOW*>(wanted), row + 1);
}

int DiscoveryListCtrl::FindRow(const LVFINDINFOW& wanted, int start) const {
    if ((wanted.flags & (LVFI_STRING | findBeginning)) == 0) return -1;
    const int end = (wanted.flags & LVFI_WRAP) != 0 ? start + GetItemCount() : GetItemCount();
    for (int place = start; place < end; ++place) {
        const int row = place % GetItemCount();
        if (IsWanted(RowAt(row)[nameColumn], wanted)) return row;
    }
    return -1;
}

const DiscoveryListCtrl::Row& DiscoveryListCtrl::RowAt(int row) const {
    return rows[order.at(static_cast<std::size_t>(row))];
}

void DiscoveryListCtrl::OnColumnClick(int column) {
    if (GetItemCount() == 0) return;
    sortAscending = column != sortColumn || !sortAscending;
    sortColumn = column;
    const std::vector<std::size_t> formerOrder = order;
    Sort();
    ShowOrder();
    const HeldDrawing held(*this);
    const int topRow = TopRow();
    isSorting = true;
    MoveState(LVIS_FOCUSED, FocusedRow(), formerOrder);
    MoveState(LVIS_SELECTED, SelectedRow(), formerOrder);
    isSorting = false;
    // Not every version of the control stays where it is when a row gets the focus.
    ScrollTo(topRow);
}

void DiscoveryListCtrl::Sort() {
    const IpAddressReader addresses;
    std::vector<SortedCell> cells;
    cells.reserve(rows.size());
    for (const Row& row : rows) {
        const std::wstring& text = row.at(static_cast<std::size_t>(sortColumn));
        cells.push_back({.text = text, .isAddress = addresses.Read(text) == 1});
    }
    SortRows(order, cells, sortAscending);
}

// The control knows rows by their place alone.
void DiscoveryListCtrl::MoveState(UINT state, int from, const std::vector<std::size_t>& formerOrder) {
    if (from < 0) return;
    const auto row = std::ranges::find(order, formerOrder.at(static_cast<std::size_t>(from)));
    ListView_SetItemState(GetSafeHwnd(), from, 0, state);
    ListView_SetItemState(GetSafeHwnd(), static_cast<int>(row - order.begin()), state, state);
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
    TellNewRows(GetSafeHwnd());
}

std::wstring DiscoveryListCtrl::SpokenOrder() const {
    const std::wstring direction = localizer.GetString(sortAscending ? TextKey::DISCOVERED_LIST_ASCENDING
                                                                     : TextKey::DISCOVERED_LIST_DESCENDING);
    return direction.empty() ? direction
                             : localizer.GetString(headingKeys.at(static_cast<std::size_t>(sortColumn))) +
                                   L", " + direction;
}

std::wstring DiscoveryListCtrl::SelectedName() const {
    return SelectedText(nameColumn);
}

std::wstring DiscoveryListCtrl::SelectedAddress() const {
    return SelectedText(addressColumn);
}

std::wstring DiscoveryListCtrl::SelectedText(std::size_t column) const {
    const int row = SelectedRow();
    return row < 0 ? std::wstring() : RowAt(row).at(column);
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
