#include "discovery/DeviceChoice.h"

ChosenDevice DeviceOfRow(const DiscoveredDevices& devices, const std::wstring& rowName, bool hasFax) {
    const DiscoveredDevice device = devices.LastOfSeries(rowName);
    return {.rowName = rowName,
            .hostName = device.hostName,
            .address = device.address,
            .model = device.model,
            .isMultiFunction = devices.IsMultiFunction(device.macAddress),
            .hasFax = hasFax};
}
