// The list of found devices: its columns, its rows, and their order.
#pragma once

#include <array>
#include <cstddef>
#include <list>
#include <string>
#include <vector>

#include "discovery/DiscoveredDevice.h"
#include "framework/CListCtrl.h"
#include "framework/Handles.h"
#include "settings/Localizer.h"

class DiscoveryListCtrl : public CListCtrl {
public:
    // The texts must outlive the list.
    explicit DiscoveryListCtrl(const Localizer& texts) : localizer(texts) {}

    // Replaces everything by one column with that heading and no rows.
    void ShowMessage(const std::wstring& heading);
    // Replaces everything by the devices, in the order that the user chose last.
    void ShowDevices(const std::list<DiscoveredDevice>& devices);

    // For LVN_COLUMNCLICK: sorts by that column, or the other way round if it is sorted by it.
    void OnColumnClick(int column);

    // The texts of the first selected row, without the marks that it may be shown with; empty without one.
    std::wstring SelectedName() const;
    std::wstring SelectedAddress() const;

protected:
    const MessageMap& GetMessageMap() const override;

private:
    static constexpr std::size_t columnCount = 3;
    using Row = std::array<std::wstring, columnCount>;

    LRESULT OnKeyUp(WPARAM key, LPARAM);
    void InsertColumns();
    void InsertRow(const Row& row);
    std::wstring SelectedText(std::size_t column) const;
    bool Sort();
    void LoadImages();
    void ShowOrder();
    // What the picture in the headings shows: the heading that the rows are sorted by, and which way.
    std::wstring SpokenOrder() const;

    std::wstring ShownColour(const std::wstring& colour) const;

    const Localizer& localizer;
    int sortColumn = 0;
    bool sortAscending = true;
    ImageList images;
    // The cells as they are, by the number that each row of the control carries: what the control shows has
    // the marks of a language that reads from right to left, and it cannot be asked for texts while it sorts.
    std::vector<Row> rows;
};
