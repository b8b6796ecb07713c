#include "wizard/DriverList.h"

bool DriverList::IsEmpty() const {
    return ::SendMessageW(list, CB_GETCOUNT, 0, 0) <= 0;
}

void DriverList::Add(const std::wstring& driverId, const std::wstring& name) {
    const LRESULT entry = ::SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    if (entry < 0) return;
    ::SendMessageW(list, CB_SETITEMDATA, static_cast<WPARAM>(entry), static_cast<LPARAM>(driverIds.size()));
    driverIds.push_back(driverId);
}

void DriverList::Clear() {
    ::SendMessageW(list, CB_RESETCONTENT, 0, 0);
    driverIds.clear();
}

void DriverList::Select(const std::wstring& driverId) const {
    const LRESULT count = ::SendMessageW(list, CB_GETCOUNT, 0, 0);
    for (LRESULT entry = 0; entry < count; ++entry) {
        if (IdOf(entry) != driverId) continue;
        ::SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
        return;
    }
}

std::wstring DriverList::SelectedId() const {
    return IdOf(::SendMessageW(list, CB_GETCURSEL, 0, 0));
}

std::wstring DriverList::IdOf(LRESULT entry) const {
    if (entry < 0) return {};
    const auto place =
        static_cast<std::size_t>(::SendMessageW(list, CB_GETITEMDATA, static_cast<WPARAM>(entry), 0));
    return place < driverIds.size() ? driverIds[place] : std::wstring();
}
