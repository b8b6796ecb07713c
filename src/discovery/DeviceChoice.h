// The device that the user has picked.
#pragma once

#include <string>

#include "discovery/DiscoveredDevices.h"
#include "printer/PrinterChoice.h"

// Returns what the delivered devices say of the row with that name; the rest of a row without a device is
// empty. Whether the selected row has a fax is known to the caller, which goes by its address. Any thread.
ChosenDevice DeviceOfRow(const DiscoveredDevices& devices, const std::wstring& rowName, bool hasFax);
