#include "framework/CListCtrl.h"

#include <windows.h>

#include <commctrl.h>

#include "framework/FocusRing.h"
#include "framework/Handles.h"

const MessageMap& CListCtrl::Events() {
    using On = EventsOf<CListCtrl>;
    static const MessageMap map(nullptr, {
                                             On::Message(WM_ENABLE, &CListCtrl::OnEnable),
                                             On::Message(WM_SETFOCUS, &CListCtrl::OnSetFocus),
                                             On::Message(WM_KILLFOCUS, &CListCtrl::OnKillFocus),
                                             On::Message(WM_PAINT, &CListCtrl::OnPaint),
                                             On::Message(WM_SYSCOLORCHANGE, &CListCtrl::OnSystemColours),
                                         });
    return map;
}

const MessageMap& CListCtrl::GetMessageMap() const {
    return Events();
}

void CListCtrl::SetExtendedStyle(DWORD style) {
    ListView_SetExtendedListViewStyle(GetSafeHwnd(), style | LVS_EX_LABELTIP | LVS_EX_INFOTIP);
}

// The control shows the focus on the row that has it. Where none has, as at first, it would not be seen.
LRESULT CListCtrl::OnSetFocus(WPARAM, LPARAM) {
    const LRESULT result = Default();
    FocusARow();
    RedrawWithoutRows();
    return result;
}

void CListCtrl::FocusARow() {
    if (GetFocus() == GetSafeHwnd() && FocusedRow() < 0)
        ListView_SetItemState(GetSafeHwnd(), 0, LVIS_FOCUSED, LVIS_FOCUSED);
}

LRESULT CListCtrl::OnKillFocus(WPARAM, LPARAM) {
    const LRESULT result = Default();
    RedrawWithoutRows();
    return result;
}

LRESULT CListCtrl::OnPaint(WPARAM, LPARAM) {
    const LRESULT result = Default();
    if (GetItemCount() == 0 && GetFocus() == GetSafeHwnd()) {
        const WindowDc context(GetSafeHwnd());
        DrawFocusRing(context.get(), RoomForRows());
    }
    return result;
}

void CListCtrl::RedrawWithoutRows() {
    if (GetItemCount() == 0) InvalidateRect(GetSafeHwnd(), nullptr, TRUE);
}

RECT CListCtrl::RoomForRows() const {
    RECT room{};
    GetClientRect(GetSafeHwnd(), &room);
    RECT heading{};
    const HWND header = ListView_GetHeader(GetSafeHwnd());
    if (IsWindowVisible(header) != FALSE) GetClientRect(header, &heading);
    room.top += heading.bottom;
    return room;
}

// Not every version of the control looks disabled by itself.
LRESULT CListCtrl::OnEnable(WPARAM enabled, LPARAM) {
    const LRESULT result = Default();
    const HWND list = GetSafeHwnd();
    if (enabled != FALSE && enabledColours) {
        SetColours(*enabledColours);
        enabledColours.reset();
    } else if (enabled == FALSE && !enabledColours) {
        enabledColours = Colours{.ground = ListView_GetBkColor(list),
                                 .textGround = ListView_GetTextBkColor(list),
                                 .text = ListView_GetTextColor(list)};
        SetColours(DisabledColours());
    }
    return result;
}

// Once it has been given colours the control keeps them.
LRESULT CListCtrl::OnSystemColours(WPARAM, LPARAM) {
    const LRESULT result = Default();
    const COLORREF ground = GetSysColor(COLOR_WINDOW);
    const Colours colours{.ground = ground, .textGround = ground, .text = GetSysColor(COLOR_WINDOWTEXT)};
    if (enabledColours) enabledColours = colours;
    SetColours(enabledColours ? DisabledColours() : colours);
    return result;
}

CListCtrl::Colours CListCtrl::DisabledColours() {
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    return {.ground = face, .textGround = face, .text = GetSysColor(COLOR_GRAYTEXT)};
}

void CListCtrl::SetColours(const Colours& colours) {
    ListView_SetBkColor(GetSafeHwnd(), colours.ground);
    ListView_SetTextBkColor(GetSafeHwnd(), colours.textGround);
    ListView_SetTextColor(GetSafeHwnd(), colours.text);
    InvalidateRect(GetSafeHwnd(), nullptr, TRUE);
}

int CListCtrl::GetItemCount() const {
    return ListView_GetItemCount(GetSafeHwnd());
}

int CListCtrl::GetColumnCount() const {
    return Header_GetItemCount(ListView_GetHeader(GetSafeHwnd()));
}

void CListCtrl::DeleteAllItems() {
    ListView_DeleteAllItems(GetSafeHwnd());
}

void CListCtrl::DeleteAllColumns() {
    while (ListView_DeleteColumn(GetSafeHwnd(), 0) != FALSE) continue;
}

void CListCtrl::InsertColumn(int column, std::wstring heading) {
    LVCOLUMNW description{.mask = LVCF_TEXT | LVCF_SUBITEM};
    description.pszText = heading.data();
    description.iSubItem = column;
    SendMessage(LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&description));
}

void CListCtrl::InsertItem(int row, std::wstring text, LPARAM data) {
    LVITEMW item{.mask = LVIF_TEXT | LVIF_PARAM};
    item.iItem = row;
    item.pszText = text.data();
    item.lParam = data;
    SendMessage(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void CListCtrl::SetItemText(int row, int column, std::wstring text) {
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    SendMessage(LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void CListCtrl::SetImageList(HIMAGELIST images) {
    // Without the style the control would destroy them with itself.
    SetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE,
                      GetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE) | LVS_SHAREIMAGELISTS);
    ListView_SetImageList(GetSafeHwnd(), images, LVSIL_SMALL);
}

void CListCtrl::SetItemImage(int row, int image) {
    LVITEMW item{.mask = LVIF_IMAGE};
    item.iItem = row;
    item.iImage = image;
    SendMessage(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

LPARAM CListCtrl::GetItemData(int row) const {
    LVITEMW item{.mask = LVIF_PARAM};
    item.iItem = row;
    SendMessage(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return item.lParam;
}

void CListCtrl::SetItemCount(int count) {
    ListView_SetItemCount(GetSafeHwnd(), count);
}

void CListCtrl::FitColumnToHeading(int column) {
    SetColumnWidth(column, LVSCW_AUTOSIZE_USEHEADER);
}

void CListCtrl::SetColumnWidth(int column, int pixels) {
    ListView_SetColumnWidth(GetSafeHwnd(), column, pixels);
}

void CListCtrl::CentreColumn(int column) {
    LVCOLUMNW description{.mask = LVCF_FMT, .fmt = LVCFMT_CENTER};
    SendMessage(LVM_SETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&description));
}

int CListCtrl::GetColumnWidth(int column) const {
    return ListView_GetColumnWidth(GetSafeHwnd(), column);
}

int CListCtrl::SelectedRow() const {
    // The count is known; a walk over many unselected rows is not worth its time.
    if (ListView_GetSelectedCount(GetSafeHwnd()) == 0) return -1;
    return ListView_GetNextItem(GetSafeHwnd(), -1, LVNI_SELECTED);
}

int CListCtrl::FocusedRow() const {
    return ListView_GetNextItem(GetSafeHwnd(), -1, LVNI_FOCUSED);
}

int CListCtrl::TopRow() const {
    return ListView_GetTopIndex(GetSafeHwnd());
}

void CListCtrl::ScrollTo(int topRow) {
    RECT row{};
    ListView_GetItemRect(GetSafeHwnd(), 0, &row, LVIR_BOUNDS);
    ListView_Scroll(GetSafeHwnd(), 0, (topRow - TopRow()) * (row.bottom - row.top));
}

void CListCtrl::SelectRow(int row) {
    if (row < 0 || row >= GetItemCount()) return;
    ListView_SetItemState(GetSafeHwnd(), row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}
