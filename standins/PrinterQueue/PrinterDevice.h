// What a package is asked to set up, read from the document that it was given.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "standins/PrinterQueue/Spooler.h"

namespace printerqueue {

// What the package says of itself. Location, comment and the fields of the port hold for each device that
// does not say otherwise.
struct PackageWishes {
    std::wstring driver;  // of a vendor, empty where the package brings none
    std::wstring infPath;
    std::vector<std::wstring> classDrivers;
    std::wstring location;
    std::wstring comment;
    std::wstring protocol;  // "LPR", anything else is raw
    std::wstring portNumber;
    std::wstring lprQueue;

    friend bool operator==(const PackageWishes&, const PackageWishes&) = default;
};

// How a device is reached.
enum class DeviceLink {
    Port,
    SharedPrinter,
    PlugAndPlay,  // Windows makes the queue when the device is plugged in.
    None          // Nobody has picked a port.
};

struct PrinterDevice {
    std::wstring name;
    DeviceLink link = DeviceLink::None;
    PrinterPort port;
    bool makesPort = false;
    std::wstring sharePath;
    bool becomesDefault = false;
    std::wstring location;
    std::wstring comment;

    friend bool operator==(const PrinterDevice&, const PrinterDevice&) = default;
};

// Returns the devices of a PRINTER_INFO value in their order; none where it holds none. Throws an Exception
// that names the device and says why it cannot be set up.
std::vector<PrinterDevice> ReadDevices(std::wstring_view printerInfo, const PackageWishes& wishes);

// Returns the names that a list divides by ";", without blanks at their ends; empty names are left out.
std::vector<std::wstring> ReadNames(std::wstring_view list);

}  // namespace printerqueue
