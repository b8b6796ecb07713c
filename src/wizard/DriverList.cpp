#include "wizard/DriverList.h"

void DriverList::Add(const std::wstring& driverId, const std::wstring& name) {
    const int entry = AddString(name);
    if (entry < 0) return;
    SetItemData(entry, static_cast<LPARAM>(driverIds.size()));
    driverIds.push_back(driverId);
}

void DriverList::Clear() {
    ResetContent();
    driverIds.clear();
}

void DriverList::Select(const std::wstring& driverId) {
    const int count = GetCount();
    for (int entry = 0; entry < count; ++entry) {
        if (IdOf(entry) != driverId) continue;
        SetCurSel(entry);
        return;
    }
}

std::wstring DriverList::IdOf(int entry) const {
    if (entry < 0) return {};
    const auto place = static_cast<std::size_t>(GetItemData(entry));
    return place < driverIds.size() ? driverIds[place] : std::wstring();
}
