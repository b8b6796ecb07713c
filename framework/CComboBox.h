// The system's drop-down list.
#pragma once

#include <string>

#include "framework/CWnd.h"

class CComboBox : public CWnd {
public:
    int GetCount() const;
    // Puts the text at the end, or where a sorted list has its place. Returns its index; below 0 if there is
    // no room for it.
    int AddString(const std::wstring& text);
    void DeleteString(int index);
    void ResetContent();
    // The text of an entry; empty for an index without one.
    std::wstring GetLBText(int index) const;

    // The index of the selected entry, below 0 without one.
    int GetCurSel() const;
    void SetCurSel(int index);

    // A number that an entry carries.
    void SetItemData(int index, LPARAM data);
    LPARAM GetItemData(int index) const;
};
