// The system's list view, as rows and columns of text. A list that has the focus shows it, with rows and
// without.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>

#include "framework/CWnd.h"

class CListCtrl : public CWnd {
public:
    // Besides that style, a text that is cut shows itself whole under the mouse.
    void SetExtendedStyle(DWORD style);

    int GetItemCount() const;
    int GetColumnCount() const;
    void DeleteAllItems();
    void DeleteAllColumns();

    // Both put the new thing at that index; a row is put into a list that keeps its rows itself.
    void InsertColumn(int column, std::wstring heading);
    void InsertItem(int row, std::wstring text, LPARAM data);
    void SetItemText(int row, int column, std::wstring text);
    // The pictures of the rows, which stay the caller's, and the one in front of a row; -1 for none.
    void SetImageList(HIMAGELIST images);
    void SetItemImage(int row, int image);
    // The number with which the row was inserted.
    LPARAM GetItemData(int row) const;
    // For a list that asks for the texts of its rows (LVS_OWNERDATA): tells it how many there are.
    void SetItemCount(int count);

    // Makes the column as wide as its heading asks for; the last one takes the rest of the list.
    void FitColumnToHeading(int column);
    void SetColumnWidth(int column, int pixels);
    void CentreColumn(int column);
    int GetColumnWidth(int column) const;

    // The first selected row, and the one that the keyboard is on, or -1.
    int SelectedRow() const;
    int FocusedRow() const;
    // The first row that is seen; the list is scrolled so that it is that one.
    int TopRow() const;
    void ScrollTo(int topRow);
    // Selects the row and puts the focus of the list on it. A row that there is not changes nothing.
    void SelectRow(int row);

protected:
    // For who has filled a list that may have the focus: puts that on the first row, unless a row has it.
    void FocusARow();

    const MessageMap& GetMessageMap() const override;
    // For the map of a derived class.
    static const MessageMap& Events();

private:
    struct Colours {
        COLORREF ground;
        COLORREF textGround;
        COLORREF text;
    };

    LRESULT OnEnable(WPARAM enabled, LPARAM);
    LRESULT OnSystemColours(WPARAM, LPARAM);
    LRESULT OnSetFocus(WPARAM, LPARAM);
    LRESULT OnKillFocus(WPARAM, LPARAM);
    LRESULT OnPaint(WPARAM, LPARAM);
    void RedrawWithoutRows();
    RECT RoomForRows() const;
    static Colours DisabledColours();
    void SetColours(const Colours& colours);

    // While the list is disabled, those that it has when it is enabled.
    std::optional<Colours> enabledColours;
};
