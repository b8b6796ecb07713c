// The system's list view, as rows and columns of text.
#pragma once

#include <string>

#include "framework/CWnd.h"

class CListCtrl : public CWnd {
public:
    void SetExtendedStyle(DWORD style);

    int GetItemCount() const;
    int GetColumnCount() const;
    void DeleteAllItems();
    void DeleteAllColumns();

    // Both put the new thing at that index.
    void InsertColumn(int column, std::wstring heading);
    void InsertItem(int row, std::wstring text, LPARAM data);
    void SetItemText(int row, int column, std::wstring text);
    std::wstring GetItemText(int row, int column) const;

    // Makes the column as wide as its heading asks for; the last one takes the rest of the list.
    void FitColumnToHeading(int column);
    void SetColumnWidth(int column, int pixels);
    int GetColumnWidth(int column) const;

    // The first selected row, or -1.
    int SelectedRow() const;
    // Selects the row and puts the focus of the list on it. A row that there is not changes nothing.
    void SelectRow(int row);

private:
    // The text of a cell, cut to that many characters with the terminator.
    std::wstring ReadCell(int row, int column, std::size_t room) const;
};
