// The devices of the last delivery, one list for the whole process.
#pragma once

#include <list>
#include <mutex>
#include <string>
#include <string_view>

#include "discovery/DiscoveredDevice.h"

// The discovery worker replaces the list while the page reads it; each operation is one step. Rows of the
// page hold no reference into the list: every lookup goes by text.
class DiscoveredDevices {
public:
    static DiscoveredDevices& GetInstance();

    DiscoveredDevices() = default;

    void Assign(std::list<DiscoveredDevice> delivered);
    // A copy, in the order of the delivery.
    std::list<DiscoveredDevice> All() const;

    // The colour of the first device of that series, else empty.
    std::wstring FindColourBySeries(std::wstring_view series) const;
    // The last device with that address, since later ones win. An empty record without one.
    DiscoveredDevice LastWithAddress(std::wstring_view address) const;
    // The last device of that series. An empty record without one.
    // By design: the last one counts, whichever row was picked.
    DiscoveredDevice LastOfSeries(std::wstring_view series) const;
    // Of the first device with that hardware address, false without one.
    bool IsMultiFunction(std::wstring_view macAddress) const;

private:
    mutable std::mutex lock;
    std::list<DiscoveredDevice> devices;
};
