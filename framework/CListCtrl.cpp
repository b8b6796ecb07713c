#include "framework/CListCtrl.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

void CListCtrl::SetExtendedStyle(DWORD style) {
    ListView_SetExtendedListViewStyle(GetSafeHwnd(), style);
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

std::wstring CListCtrl::GetItemText(int row, int column) const {
    std::size_t room = 128;
    std::wstring text = ReadCell(row, column, room);
    // A text that fills its room may have been cut off.
    while (text.size() + 1 >= room) {
        room *= 2;
        text = ReadCell(row, column, room);
    }
    return text;
}

std::wstring CListCtrl::ReadCell(int row, int column, std::size_t room) const {
    std::wstring text(room, L'\0');
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(room);
    const auto length = static_cast<std::size_t>(
        SendMessage(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item)));
    text.resize(std::min(length, room));
    return text;
}

void CListCtrl::FitColumnToHeading(int column) {
    SetColumnWidth(column, LVSCW_AUTOSIZE_USEHEADER);
}

void CListCtrl::SetColumnWidth(int column, int pixels) {
    ListView_SetColumnWidth(GetSafeHwnd(), column, pixels);
}

int CListCtrl::GetColumnWidth(int column) const {
    return ListView_GetColumnWidth(GetSafeHwnd(), column);
}

int CListCtrl::SelectedRow() const {
    // The count is known; a walk over many unselected rows is not worth its time.
    if (ListView_GetSelectedCount(GetSafeHwnd()) == 0) return -1;
    return ListView_GetNextItem(GetSafeHwnd(), -1, LVNI_SELECTED);
}

void CListCtrl::SelectRow(int row) {
    if (row < 0 || row >= GetItemCount()) return;
    ListView_SetItemState(GetSafeHwnd(), row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}
