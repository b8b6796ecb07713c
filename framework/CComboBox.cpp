#include "framework/CComboBox.h"

int CComboBox::GetCount() const {
    return static_cast<int>(SendMessage(CB_GETCOUNT));
}

int CComboBox::AddString(const std::wstring& text) {
    return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())));
}

void CComboBox::DeleteString(int index) {
    SendMessage(CB_DELETESTRING, static_cast<WPARAM>(index));
}

void CComboBox::ResetContent() {
    SendMessage(CB_RESETCONTENT);
}

std::wstring CComboBox::GetLBText(int index) const {
    const LRESULT length = SendMessage(CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
    if (length < 0) return {};
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    SendMessage(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    return text;
}

int CComboBox::GetCurSel() const {
    return static_cast<int>(SendMessage(CB_GETCURSEL));
}

void CComboBox::SetCurSel(int index) {
    SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index));
}

void CComboBox::SetItemData(int index, LPARAM data) {
    SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(index), data);
}

LPARAM CComboBox::GetItemData(int index) const {
    return SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(index));
}
