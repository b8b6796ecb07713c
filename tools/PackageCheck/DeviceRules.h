// Rules of the printers that PackageUserSettings.xml describes.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule deviceNone{
    .id = "device-none",
    .severity = Severity::Warning,
    .effect = "The run counts as one with predefined printers, and sets none up.",
    .cure = "Add a DEVICE for each printer, or remove PackageUserSettings.xml.",
    .explanation =
        "PackageUserSettings.xml is there and no DEVICE of it takes effect. The drivers are installed "
        "without a "
        "printer, and the user cannot choose one."};

inline constexpr Rule deviceTagUnknown{
    .id = "device-tag-unknown",
    .severity = Severity::Warning,
    .effect =
        "Neither the wizard nor PrinterQueue.dll knows the tag, so it has no effect unless the driver reads "
        "it.",
    .cure = "Correct the name.",
    .explanation =
        "A device document reaches the installation of the driver as it is, which may know further tags."};

inline constexpr Rule deviceTagRepeated{
    .id = "device-tag-repeated",
    .severity = Severity::Warning,
    .effect = "Only the first element of the device counts.",
    .cure = "Remove the others.",
    .explanation = "Within a device the first element of a name is the one that is read."};

inline constexpr Rule deviceWithoutDriver{
    .id = "device-without-driver",
    .severity = Severity::Error,
    .effect = "The printer is not set up.",
    .cure = "Give the device a DRIVER_ID.",
    .explanation = "Each driver gets the devices with its own DRIVER_ID. One without it goes to nobody."};

inline constexpr Rule deviceDriverUnknown{
    .id = "device-driver-unknown",
    .severity = Severity::Error,
    .effect = "The printer is not set up.",
    .cure = "Write the DRIVERID of a driver package of this tree, in the same case.",
    .explanation =
        "No .msi file in Drivers/x64 or Drivers/x86_x64 has this identifier, so no driver gets the device."};

inline constexpr Rule deviceAddressPreset{
    .id = "device-address-preset",
    .severity = Severity::Warning,
    .effect = "The search of the wizard asks this one device instead of the network.",
    .cure = "Set HIDE_DISCOVERY to true, or leave IPADDRESS out and keep HOST_NAME and PORT_NAME.",
    .explanation =
        "Tags are looked for in the whole text, also within a DEVICE. IPADDRESS there is the device's own "
        "for "
        "its driver, and at the same time the preset of the search."};

inline constexpr Rule devicePortType{
    .id = "device-port-type",
    .severity = Severity::Warning,
    .effect = "The port is treated as a local one, and no network port is made.",
    .cure = "Write Standard TCP/IP Port, Local Port or USB.",
    .explanation =
        "The types are compared exactly. The name of the branded type, OEM and \" Nimbo Jet\", counts as "
        "well."};

inline constexpr Rule devicePortMissing{.id = "device-port-missing",
                                        .severity = Severity::Error,
                                        .effect = "The driver is installed, and the printer is not made.",
                                        .cure = "Give the device HOST_NAME or IPADDRESS, and PORT_NAME.",
                                        .explanation =
                                            "A network port needs the name or the address of a host. Without "
                                            "both, only -ip at the start gives the "
                                            "device one."};

inline constexpr Rule deviceHost{.id = "device-host",
                                 .severity = Severity::Error,
                                 .effect = "The printer is made and cannot be reached.",
                                 .cure = "Write a host name or an address.",
                                 .explanation =
                                     "A host consists of letters, digits, hyphens and points; a host of a "
                                     "network port has 48 characters at "
                                     "most. An address of IPv6 is written as Windows writes it in names."};

inline constexpr Rule deviceName{
    .id = "device-name",
    .severity = Severity::Error,
    .effect = "The printer is not made, and the installation of its driver fails.",
    .cure = "Give it a name of at most 220 characters without \\ , and !.",
    .explanation = "Windows takes no other names of printers."};

inline constexpr Rule deviceNameMissing{
    .id = "device-name-missing",
    .severity = Severity::Warning,
    .effect = "The printer has no name of its own, and its driver's installation fails or invents one.",
    .cure = "Give the device a PRINTER_NAME, or DETECT_PRINTER where the user finds it on the network.",
    .explanation = "With predefined printers the wizard hands the names on as they are."};

inline constexpr Rule deviceNameRepeated{
    .id = "device-name-repeated",
    .severity = Severity::Error,
    .effect = "The second printer changes the first one instead of standing beside it.",
    .cure = "Give each printer a name of its own.",
    .explanation = "A printer is known by its name, in any case of letters."};

inline constexpr Rule deviceDetect{
    .id = "device-detect",
    .severity = Severity::Warning,
    .effect = "The printer keeps the name of the file.",
    .cure = "Write true, True or TRUE.",
    .explanation = "DETECT_PRINTER is compared with these three texts alone, and dropped whatever it says."};

inline constexpr Rule deviceConfigMissing{
    .id = "device-config-missing",
    .severity = Severity::Error,
    .effect = "The driver is pointed at a configuration file that does not exist.",
    .cure = "Put the file beside PackageUserSettings.xml.",
    .explanation =
        "DRIVERCONFIG_PATH of a device is a path from the folder Setup. The wizard copies the file to the "
        "machine and does not look whether that worked."};

inline constexpr Rule deviceConfigExtension{
    .id = "device-config-extension",
    .severity = Severity::Error,
    .effect = "Where a file of that name is on the machine already, the device keeps the older one.",
    .cure = "Give the file an extension.",
    .explanation =
        "A free name is made by a number in front of the extension, so that a name without one cannot be "
        "freed."};

inline constexpr Rule deviceToolMissing{
    .id = "device-tool-missing",
    .severity = Severity::Error,
    .effect = "The driver gets no configuration tool.",
    .cure = "Put the tool's .msi file beside PackageUserSettings.xml, and write a part of its name.",
    .explanation =
        "CONFIG_EXE_PATH of a device is a part of the path of an .msi file in the folder Setup, in the same "
        "case "
        "of letters."};

}  // namespace rules

void CheckDevices(const Package& package, Report& report);

}  // namespace packagecheck
