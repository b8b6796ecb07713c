// The list of found devices: its columns, its rows, and their order.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <cstddef>
#include <list>
#include <string>
#include <vector>

#include "discovery/DiscoveredDevice.h"
#include "framework/CListCtrl.h"
#include "framework/Handles.h"
#include "settings/Localizer.h"

// For a list view that asks for its texts (LVS_OWNERDATA), in a dialog.
class DiscoveryListCtrl : public CListCtrl {
public:
    // The texts must outlive the list.
    explicit DiscoveryListCtrl(const Localizer& texts) : localizer(texts) {}

    // Replaces everything by one column with that heading and no rows.
    void ShowMessage(const std::wstring& heading);
    // Replaces everything by the devices, in the order that the user chose last.
    void ShowDevices(const std::list<DiscoveredDevice>& devices);

    // For LVN_COLUMNCLICK: sorts by that column, or the other way round if it is sorted by it. What is
    // selected stays so.
    void OnColumnClick(int column);
    // Whether what changes now is where the devices stand, and not which of them is selected.
    bool IsSorting() const { return isSorting; }

    // The texts of the first selected row, without the marks that it may be shown with; empty without one.
    std::wstring SelectedName() const;
    std::wstring SelectedAddress() const;

protected:
    const MessageMap& GetMessageMap() const override;

private:
    static constexpr std::size_t columnCount = 3;
    using Row = std::array<std::wstring, columnCount>;

    LRESULT OnKeyUp(WPARAM key, LPARAM);
    LRESULT OnTextAsked(NMHDR& header);
    LRESULT OnRowAsked(NMHDR& header);
    LRESULT OnFindItem(WPARAM behind, LPARAM wanted);
    void InsertColumns();
    void TakeRows(const std::list<DiscoveredDevice>& devices);
    const Row& RowAt(int row) const;
    // The first row from there on that has the text, or -1.
    int FindRow(const LVFINDINFOW& wanted, int start) const;
    std::wstring ShownText(const LVITEMW& item) const;
    std::wstring SelectedText(std::size_t column) const;
    void Sort();
    void MoveState(UINT state, int from, const std::vector<std::size_t>& formerOrder);
    void LoadImages();
    void ShowOrder();
    // What the picture in the headings shows: the heading that the rows are sorted by, and which way.
    std::wstring SpokenOrder() const;

    std::wstring ShownColour(const std::wstring& colour) const;

    const Localizer& localizer;
    int sortColumn = 0;
    bool sortAscending = true;
    bool isSorting = false;
    ImageList images;
    // The cells as they are, in the order of the delivery: what is shown has the marks of a language that
    // reads from right to left.
    std::vector<Row> rows;
    // Which of them stands in each row of the control, which keeps none itself.
    std::vector<std::size_t> order;
};
