// Rules of the printers that PackageUserSettings.xml describes.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule deviceNone{
    "device-none",
    Severity::Warning,
    "The run counts as one with predefined printers, and sets none up.",
    "Add a DEVICE for each printer, or remove PackageUserSettings.xml.",
    "PackageUserSettings.xml is there and no DEVICE of it takes effect. The drivers are installed without a "
    "printer, and the user cannot choose one.",
};

inline constexpr Rule deviceTagUnknown{
    "device-tag-unknown",
    Severity::Warning,
    "Neither the wizard nor PrinterQueue.dll knows the tag, so it has no effect unless the driver reads it.",
    "Correct the name.",
    "A device document reaches the installation of the driver as it is, which may know further tags.",
};

inline constexpr Rule deviceTagRepeated{
    "device-tag-repeated",
    Severity::Warning,
    "Only the first element of the device counts.",
    "Remove the others.",
    "Within a device the first element of a name is the one that is read.",
};

inline constexpr Rule deviceWithoutDriver{
    "device-without-driver",
    Severity::Error,
    "The printer is not set up.",
    "Give the device a DRIVER_ID.",
    "Each driver gets the devices with its own DRIVER_ID. One without it goes to nobody.",
};

inline constexpr Rule deviceDriverUnknown{
    "device-driver-unknown",
    Severity::Error,
    "The printer is not set up.",
    "Write the DRIVERID of a driver package of this tree, in the same case.",
    "No .msi file in Drivers/x64 or Drivers/x86_x64 has this identifier, so no driver gets the device.",
};

inline constexpr Rule deviceAddressPreset{
    "device-address-preset",
    Severity::Warning,
    "The search of the wizard asks this one device instead of the network.",
    "Set HIDE_DISCOVERY to true, or leave IPADDRESS out and keep HOST_NAME and PORT_NAME.",
    "Tags are looked for in the whole text, also within a DEVICE. IPADDRESS there is the device's own for "
    "its driver, and at the same time the preset of the search.",
};

inline constexpr Rule devicePortType{
    "device-port-type",
    Severity::Warning,
    "The port is treated as a local one, and no network port is made.",
    "Write Standard TCP/IP Port, Local Port or USB.",
    "The types are compared exactly. The name of the branded type, OEM and \" Nimbo Jet\", counts as well.",
};

inline constexpr Rule devicePortMissing{
    "device-port-missing",
    Severity::Error,
    "The driver is installed, and the printer is not made.",
    "Give the device HOST_NAME or IPADDRESS, and PORT_NAME.",
    "A network port needs the name or the address of a host. Without both, only -ip at the start gives the "
    "device one.",
};

inline constexpr Rule deviceHost{
    "device-host",
    Severity::Error,
    "The printer is made and cannot be reached.",
    "Write a host name or an address.",
    "A host consists of letters, digits, hyphens and points; a host of a network port has 48 characters at "
    "most. An address of IPv6 is written as Windows writes it in names.",
};

inline constexpr Rule deviceName{
    "device-name",
    Severity::Error,
    "The printer is not made, and the installation of its driver fails.",
    "Give it a name of at most 220 characters without \\ , and !.",
    "Windows takes no other names of printers.",
};

inline constexpr Rule deviceNameMissing{
    "device-name-missing",
    Severity::Warning,
    "The printer has no name of its own, and its driver's installation fails or invents one.",
    "Give the device a PRINTER_NAME, or DETECT_PRINTER where the user finds it on the network.",
    "With predefined printers the wizard hands the names on as they are.",
};

inline constexpr Rule deviceNameRepeated{
    "device-name-repeated",
    Severity::Error,
    "The second printer changes the first one instead of standing beside it.",
    "Give each printer a name of its own.",
    "A printer is known by its name, in any case of letters.",
};

inline constexpr Rule deviceDetect{
    "device-detect",
    Severity::Warning,
    "The printer keeps the name of the file.",
    "Write true, True or TRUE.",
    "DETECT_PRINTER is compared with these three texts alone, and dropped whatever it says.",
};

inline constexpr Rule deviceConfigMissing{
    "device-config-missing",
    Severity::Error,
    "The driver is pointed at a configuration file that does not exist.",
    "Put the file beside PackageUserSettings.xml.",
    "DRIVERCONFIG_PATH of a device is a path from the folder Setup. The wizard copies the file to the "
    "machine and does not look whether that worked.",
};

inline constexpr Rule deviceConfigExtension{
    "device-config-extension",
    Severity::Error,
    "Where a file of that name is on the machine already, the device keeps the older one.",
    "Give the file an extension.",
    "A free name is made by a number in front of the extension, so that a name without one cannot be freed.",
};

inline constexpr Rule deviceToolMissing{
    "device-tool-missing",
    Severity::Error,
    "The driver gets no configuration tool.",
    "Put the tool's .msi file beside PackageUserSettings.xml, and write a part of its name.",
    "CONFIG_EXE_PATH of a device is a part of the path of an .msi file in the folder Setup, in the same case "
    "of letters.",
};

}  // namespace rules

void CheckDevices(const Package& package, Report& report);

}  // namespace packagecheck
