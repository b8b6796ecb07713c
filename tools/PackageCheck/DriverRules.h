// Rules of the drivers: their packages, and what the settings say of them.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule driverIdMissing{
    .id = "driver-id-missing",
    .severity = Severity::Error,
    .effect = "The driver is installed on every system, and no device and no choice of the user leads to it.",
    .cure = "Give the package a DRIVERID.",
    .explanation =
        "A package in the folder Drivers without DRIVERID is neither a printer driver nor a scan or fax "
        "driver, "
        "and is installed without any test."};

inline constexpr Rule driverIdCase{
    .id = "driver-id-case",
    .severity = Severity::Error,
    .effect = "The package counts as a printer driver.",
    .cure = "Write SCAN or Fax.",
    .explanation = "Scan and fax drivers are known by exactly these identifiers."};

inline constexpr Rule driverTooNew{
    .id = "driver-too-new",
    .severity = Severity::Error,
    .effect =
        "On Windows 7 the installation of the driver fails, and the run takes back what it has installed.",
    .cure = "Take the identifier out of WINXP_DRVTYPES.",
    .explanation =
        "A driver with V4 in its identifier is of the newer generation, which Windows has from Windows 8 "
        "on."};

inline constexpr Rule driverNameMissing{.id = "driver-name-missing",
                                        .severity = Severity::Warning,
                                        .effect = "The list of drivers has an empty line.",
                                        .cure = "Give the package a DRIVERNAME.",
                                        .explanation = "The user picks a printer driver by its DRIVERNAME."};

inline constexpr Rule driverIdShared{
    .id = "driver-id-shared",
    .severity = Severity::Warning,
    .effect = "Both packages are installed for a printer of either.",
    .cure = "Give each driver an identifier of its own.",
    .explanation =
        "A driver is selected by its identifier, and with it every package that has the same one."};

inline constexpr Rule driverNotAccepted{
    .id = "driver-not-accepted",
    .severity = Severity::Error,
    .effect = "The driver is never installed.",
    .cure = "Add its identifier to WIN8_DRVTYPES, or WINXP_DRVTYPES for Windows 7; or remove the package.",
    .explanation =
        "A printer driver counts if the list of the system names its DRIVERID, in the same case. From "
        "Windows 8 "
        "on that is WIN8_DRVTYPES."};

inline constexpr Rule driverTypeUnused{
    .id = "driver-type-unused",
    .severity = Severity::Warning,
    .effect = "The entry stands for no driver of the package.",
    .cure = "Correct the identifier, or remove it from the list.",
    .explanation = "Identifiers are compared exactly, with the blanks around them."};

inline constexpr Rule defaultDriverUnknown{
    .id = "default-driver-unknown",
    .severity = Severity::Error,
    .effect = "The wizard proposes no driver for such a printer, and the one that was selected before stays.",
    .cure = "Name a driver that the package has and the system accepts.",
    .explanation =
        "MONO_DEFAULT, COLOR_DEFAULT and NO_COMM_DEFAULT name the driver by the colour of the device. From "
        "Windows 8 on the tags with WIN8_ in front are read."};

inline constexpr Rule defaultDriverMissing{
    .id = "default-driver-missing",
    .severity = Severity::Warning,
    .effect = "The wizard proposes no driver for such a printer.",
    .cure = "Set the tag.",
    .explanation =
        "The package has printer drivers that the system accepts, and does not say which one is for such a "
        "device. NO_COMM_DEFAULT is for a device that does not say its colour, and for USB."};

inline constexpr Rule overrideForm{
    .id = "override-form",
    .severity = Severity::Error,
    .effect = "The entry leads its device to no driver, or to that of another one.",
    .cure = "Write each entry as device, \":\", driver and \";\".",
    .explanation =
        "The wizard looks for the text of the device anywhere in MODEL_DEFAULT_OVERRIDE, and takes what "
        "stands "
        "between the next \":\" and the next \";\"."};

inline constexpr Rule overrideDriverUnknown{
    .id = "override-driver-unknown",
    .severity = Severity::Error,
    .effect = "The wizard proposes no driver for the device, and the one that was selected before stays.",
    .cure = "Name a driver of the package.",
    .explanation =
        "An entry of MODEL_DEFAULT_OVERRIDE takes precedence over the default by colour, also where there is "
        "no "
        "such driver."};

inline constexpr Rule overrideShadowed{
    .id = "override-shadowed",
    .severity = Severity::Error,
    .effect = "The device gets the driver of another device.",
    .cure = "Put the entry with the shorter name in front of the one that contains it.",
    .explanation =
        "The text of a device is found anywhere in MODEL_DEFAULT_OVERRIDE. Where a longer name that holds it "
        "comes first, the entry of that one is taken."};

inline constexpr Rule overrideLong{
    .id = "override-long",
    .severity = Severity::Warning,
    .effect = "Nothing goes wrong; the entries from here on are not checked.",
    .cure = "Divide the devices by their colour where that settles the driver.",
    .explanation =
        "To look for each device in the table takes time in proportion to the square of its length, so only "
        "the "
        "first 500 entries of a table are checked, and only of one with at most 100,000 characters."};

inline constexpr Rule ombrelValue{.id = "ombrel-value",
                                  .severity = Severity::Error,
                                  .effect = "The user is offered no configuration for the driver.",
                                  .cure = "Write TRUE, in capitals.",
                                  .explanation = "ISOMBRELSUPPORTED is compared with exactly this text."};

inline constexpr Rule ombrelWithoutTool{
    .id = "ombrel-without-tool",
    .severity = Severity::Warning,
    .effect = "The user is offered no configuration for the driver.",
    .cure =
        "Add the package of the tool, with APPTYPE DRIVERCONFIG or V4DRIVERCONFIG, or leave "
        "ISOMBRELSUPPORTED out.",
    .explanation = "A driver with V4 in its identifier needs the newer tool, any other the older one."};

}  // namespace rules

void CheckDrivers(const Package& package, Report& report);

}  // namespace packagecheck
