// A device that discovery found, as the page shows it.
#pragma once

#include <string>

// The fields that the device left out are empty.
struct DiscoveredDevice {
    std::wstring model;
    std::wstring series;
    std::wstring address;
    std::wstring hostName;
    std::wstring macAddress;
    std::wstring colour;
    bool isMultiFunction = false;
    bool hasFax = false;
};
