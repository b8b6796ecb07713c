// Rules of the drivers: their packages, and what the settings say of them.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule driverIdMissing{
    "driver-id-missing",
    Severity::Error,
    "The driver is installed on every system, and no device and no choice of the user leads to it.",
    "Give the package a DRIVERID.",
    "A package in the folder Drivers without DRIVERID is neither a printer driver nor a scan or fax driver, "
    "and is installed without any test.",
};

inline constexpr Rule driverIdCase{
    "driver-id-case",
    Severity::Error,
    "The package counts as a printer driver.",
    "Write SCAN or Fax.",
    "Scan and fax drivers are known by exactly these identifiers.",
};

inline constexpr Rule driverTooNew{
    "driver-too-new",
    Severity::Error,
    "On Windows 7 the installation of the driver fails, and the run takes back what it has installed.",
    "Take the identifier out of WINXP_DRVTYPES.",
    "A driver with V4 in its identifier is of the newer generation, which Windows has from Windows 8 on.",
};

inline constexpr Rule driverNameMissing{
    "driver-name-missing",
    Severity::Warning,
    "The list of drivers has an empty line.",
    "Give the package a DRIVERNAME.",
    "The user picks a printer driver by its DRIVERNAME.",
};

inline constexpr Rule driverIdShared{
    "driver-id-shared",
    Severity::Warning,
    "Both packages are installed for a printer of either.",
    "Give each driver an identifier of its own.",
    "A driver is selected by its identifier, and with it every package that has the same one.",
};

inline constexpr Rule driverNotAccepted{
    "driver-not-accepted",
    Severity::Error,
    "The driver is never installed.",
    "Add its identifier to WIN8_DRVTYPES, or WINXP_DRVTYPES for Windows 7; or remove the package.",
    "A printer driver counts if the list of the system names its DRIVERID, in the same case. From Windows 8 "
    "on that is WIN8_DRVTYPES.",
};

inline constexpr Rule driverTypeUnused{
    "driver-type-unused",
    Severity::Warning,
    "The entry stands for no driver of the package.",
    "Correct the identifier, or remove it from the list.",
    "Identifiers are compared exactly, with the blanks around them.",
};

inline constexpr Rule defaultDriverUnknown{
    "default-driver-unknown",
    Severity::Error,
    "The wizard proposes no driver for such a printer, and the one that was selected before stays.",
    "Name a driver that the package has and the system accepts.",
    "MONO_DEFAULT, COLOR_DEFAULT and NO_COMM_DEFAULT name the driver by the colour of the device. From "
    "Windows 8 on the tags with WIN8_ in front are read.",
};

inline constexpr Rule defaultDriverMissing{
    "default-driver-missing",
    Severity::Warning,
    "The wizard proposes no driver for such a printer.",
    "Set the tag.",
    "The package has printer drivers that the system accepts, and does not say which one is for such a "
    "device. NO_COMM_DEFAULT is for a device that does not say its colour, and for USB.",
};

inline constexpr Rule overrideForm{
    "override-form",
    Severity::Error,
    "The entry leads its device to no driver, or to that of another one.",
    "Write each entry as device, \":\", driver and \";\".",
    "The wizard looks for the text of the device anywhere in MODEL_DEFAULT_OVERRIDE, and takes what stands "
    "between the next \":\" and the next \";\".",
};

inline constexpr Rule overrideDriverUnknown{
    "override-driver-unknown",
    Severity::Error,
    "The wizard proposes no driver for the device, and the one that was selected before stays.",
    "Name a driver of the package.",
    "An entry of MODEL_DEFAULT_OVERRIDE takes precedence over the default by colour, also where there is no "
    "such driver.",
};

inline constexpr Rule overrideShadowed{
    "override-shadowed",
    Severity::Error,
    "The device gets the driver of another device.",
    "Put the entry with the shorter name in front of the one that contains it.",
    "The text of a device is found anywhere in MODEL_DEFAULT_OVERRIDE. Where a longer name that holds it "
    "comes first, the entry of that one is taken.",
};

inline constexpr Rule overrideLong{
    "override-long",
    Severity::Warning,
    "Nothing goes wrong; the entries from here on are not checked.",
    "Divide the devices by their colour where that settles the driver.",
    "To look for each device in the table takes time in proportion to the square of its length, so only the "
    "first 500 entries of a table are checked, and only of one with at most 100,000 characters.",
};

inline constexpr Rule ombrelValue{
    "ombrel-value",
    Severity::Error,
    "The user is offered no configuration for the driver.",
    "Write TRUE, in capitals.",
    "ISOMBRELSUPPORTED is compared with exactly this text.",
};

inline constexpr Rule ombrelWithoutTool{
    "ombrel-without-tool",
    Severity::Warning,
    "The user is offered no configuration for the driver.",
    "Add the package of the tool, with APPTYPE DRIVERCONFIG or V4DRIVERCONFIG, or leave ISOMBRELSUPPORTED "
    "out.",
    "A driver with V4 in its identifier needs the newer tool, any other the older one.",
};

}  // namespace rules

void CheckDrivers(const Package& package, Report& report);

}  // namespace packagecheck
