// The drop-down list of the package's printer drivers, on the pages that offer a choice.
#pragma once

#include <string>
#include <vector>

#include "framework/CComboBox.h"

// Shows the names of drivers and knows their identifiers.
class DriverList : public CComboBox {
public:
    bool IsEmpty() const { return GetCount() <= 0; }
    // Puts the driver at the end of the list.
    void Add(const std::wstring& driverId, const std::wstring& name);
    void Clear();
    // Selects the first driver with that identifier; without one the selection stays.
    void Select(const std::wstring& driverId);
    // The identifier of the selected driver, or empty.
    std::wstring SelectedId() const { return IdOf(GetCurSel()); }

private:
    // The identifier that is attached to the entry.
    std::wstring IdOf(int entry) const;

    std::vector<std::wstring> driverIds;
};
