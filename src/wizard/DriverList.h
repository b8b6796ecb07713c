// The drop-down list of the package's printer drivers, on the pages that offer a choice.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Shows the names of drivers and knows their identifiers. Belongs to the thread of the control, which is not
// owned.
class DriverList {
public:
    void Attach(HWND comboBox) { list = comboBox; }

    bool IsEmpty() const;
    // Puts the driver at the end of the list.
    void Add(const std::wstring& driverId, const std::wstring& name);
    void Clear();
    // Selects the first driver with that identifier; without one the selection stays.
    void Select(const std::wstring& driverId) const;
    // The identifier of the selected driver, or empty.
    std::wstring SelectedId() const;

private:
    // The identifier that is attached to the entry.
    std::wstring IdOf(LRESULT entry) const;

    HWND list = nullptr;
    std::vector<std::wstring> driverIds;
};
