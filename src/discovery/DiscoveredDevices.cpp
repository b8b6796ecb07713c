#include "discovery/DiscoveredDevices.h"

#include <algorithm>
#include <utility>

#include "CommonLib/Singleton.h"

namespace {

template <class Devices, class Condition>
DiscoveredDevice LastThat(const Devices& devices, Condition condition) {
    const auto found = std::find_if(devices.rbegin(), devices.rend(), condition);
    return found == devices.rend() ? DiscoveredDevice{} : *found;
}

template <class Devices, class Condition>
DiscoveredDevice FirstThat(const Devices& devices, Condition condition) {
    const auto found = std::ranges::find_if(devices, condition);
    return found == devices.end() ? DiscoveredDevice{} : *found;
}

Singleton<DiscoveredDevices> sharedDevices;

}  // namespace

DiscoveredDevices& DiscoveredDevices::GetInstance() {
    return sharedDevices.Get();
}

void DiscoveredDevices::Assign(std::list<DiscoveredDevice> delivered) {
    const std::lock_guard guard(lock);
    devices = std::move(delivered);
}

std::list<DiscoveredDevice> DiscoveredDevices::All() const {
    const std::lock_guard guard(lock);
    return devices;
}

std::wstring DiscoveredDevices::FindColourBySeries(std::wstring_view series) const {
    const std::lock_guard guard(lock);
    return FirstThat(devices, [&](const DiscoveredDevice& device) { return device.series == series; }).colour;
}

DiscoveredDevice DiscoveredDevices::LastWithAddress(std::wstring_view address) const {
    const std::lock_guard guard(lock);
    return LastThat(devices, [&](const DiscoveredDevice& device) { return device.address == address; });
}

DiscoveredDevice DiscoveredDevices::LastOfSeries(std::wstring_view series) const {
    const std::lock_guard guard(lock);
    return LastThat(devices, [&](const DiscoveredDevice& device) { return device.series == series; });
}

bool DiscoveredDevices::IsMultiFunction(std::wstring_view macAddress) const {
    const std::lock_guard guard(lock);
    return FirstThat(devices, [&](const DiscoveredDevice& device) { return device.macAddress == macAddress; })
        .isMultiFunction;
}
