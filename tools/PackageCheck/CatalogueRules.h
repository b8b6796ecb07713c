// Rules of the .msi files of a package.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule msiUnreadable{
    .id = "msi-unreadable",
    .severity = Severity::Error,
    .effect = "The package is listed without a name, is handed to Windows Installer and fails.",
    .cure = "Build the file again.",
    .explanation =
        "A package that cannot be read enters the catalogue with empty fields. In the folder Drivers it "
        "counts "
        "as one that every system accepts."};

inline constexpr Rule msiMisplaced{.id = "msi-misplaced",
                                   .severity = Severity::Error,
                                   .effect = "The wizard never finds the package.",
                                   .cure = "Move it to one of the folders of the tree.",
                                   .explanation =
                                       "Packages are looked for straight in Applications and in the folders "
                                       "x86_x64 and x64 of Applications, "
                                       "Common, Optional, Dependents and Drivers, in Install and beside the "
                                       "settings. Nothing deeper is read."};

inline constexpr Rule msiNone{.id = "msi-none",
                              .severity = Severity::Warning,
                              .effect = "The wizard installs nothing, and says that it has succeeded.",
                              .cure = "Add a package to Applications or to Drivers.",
                              .explanation = "No package of the tree would ever be installed."};

inline constexpr Rule productNameMissing{
    .id = "product-name-missing",
    .severity = Severity::Error,
    .effect = "The list of software has a line without a name.",
    .cure = "Set ProductName.",
    .explanation = "The progress and the outcome of a package are shown under its ProductName."};

inline constexpr Rule productNameShared{
    .id = "product-name-shared",
    .severity = Severity::Error,
    .effect =
        "The two packages share one line of the outcome, so that a success of the later one hides a failure.",
    .cure = "Give each package a ProductName of its own.",
    .explanation = "Outcomes are kept by ProductName."};

inline constexpr Rule productCodeShared{
    .id = "product-code-shared",
    .severity = Severity::Error,
    .effect = "The second package repairs the first one instead of being installed, or is passed over.",
    .cure = "Give each package a product code of its own, and put a package into one folder only.",
    .explanation = "Windows Installer knows a product by its code."};

inline constexpr Rule upgradeCodeMissing{
    .id = "upgrade-code-missing",
    .severity = Severity::Warning,
    .effect = "A newer version is installed beside the older one.",
    .cure = "Give the package an upgrade code, the same one for all versions.",
    .explanation = "Versions of one software are known by their upgrade code."};

inline constexpr Rule upgradeCodeShared{
    .id = "upgrade-code-shared",
    .severity = Severity::Error,
    .effect = "The installation of the second package removes the first one.",
    .cure = "Give each product an upgrade code of its own.",
    .explanation =
        "By the upgrade code Windows Installer knows versions of one product. A package that removes older "
        "products of its code takes another product of the same code for one of them."};

inline constexpr Rule upgradeRowMissing{.id = "upgrade-row-missing",
                                        .severity = Severity::Warning,
                                        .effect = "An older version stays on the system beside the new one.",
                                        .cure =
                                            "Add a row for the package's own upgrade code, without the flag "
                                            "that only detects, to the Upgrade table.",
                                        .explanation =
                                            "Windows Installer removes what the rows of the Upgrade table "
                                            "find. A package with a new product code "
                                            "and without such a row replaces nothing."};

inline constexpr Rule upgradePropertyNotSecure{
    .id = "upgrade-property-not-secure",
    .severity = Severity::Warning,
    .effect = "Where the package is installed by a user with raised rights, the older version may stay.",
    .cure = "List the ActionProperty of each row of the Upgrade table in SecureCustomProperties.",
    .explanation =
        "What FindRelatedProducts finds reaches the part of the installation that has the rights only by a "
        "property of that list."};

inline constexpr Rule productVersion{
    .id = "product-version",
    .severity = Severity::Warning,
    .effect = "A newer version is taken for the same one, and is not installed.",
    .cure = "Write three fields of at most 255, 255 and 65535, and count up one of them.",
    .explanation = "Windows Installer compares three fields of a version. What follows them does not count."};

inline constexpr Rule securePropertyMissing{
    .id = "secure-property-missing",
    .severity = Severity::Error,
    .effect =
        "The package is installed without what the wizard hands to it: printers are not made, or files go "
        "elsewhere.",
    .cure = "List the property in SecureCustomProperties.",
    .explanation =
        "The package uses PRINTER_INFO, TARGET_DIR or another property of the wizard. Windows Installer "
        "hands it "
        "to the part of the installation that has the rights only if the list names it."};

inline constexpr Rule installSize{
    .id = "install-size",
    .severity = Severity::Warning,
    .effect = "The size counts as 0, or as that many megabytes.",
    .cure = "Write the megabytes in front, as in 12 MB.",
    .explanation = "The number at the start of INSTALLSIZE is read, whatever unit follows. A comma ends it."};

inline constexpr Rule installSizeMissing{
    .id = "install-size-missing",
    .severity = Severity::Warning,
    .effect = "The package counts as taking no room.",
    .cure = "Set INSTALLSIZE to the megabytes that the package takes, as in 12 MB.",
    .explanation = "The wizard reads the size from the property alone and does not look into the package."};

inline constexpr Rule summaryIncomplete{
    .id = "summary-incomplete",
    .severity = Severity::Error,
    .effect = "Windows Installer refuses the package.",
    .cure =
        "Build the file with a tool that writes its summary information: template, page count, revision "
        "number.",
    .explanation =
        "The template says for which platform and languages the package is, the page count which version of "
        "Windows Installer it needs (200 for 2.0), and the revision number is the code of the package. "
        "Without "
        "them it is not opened for an installation."};

inline constexpr Rule summaryVersion{
    .id = "summary-version",
    .severity = Severity::Error,
    .effect = "Windows Installer refuses the package as one for a later version.",
    .cure = "Set InstallerVersion to 500 or less.",
    .explanation =
        "The page count of the summary information is the version that the package needs, and 5.0 is "
        "the one that Windows has, from Windows 7 on."};

inline constexpr Rule msiFolder{
    .id = "msi-folder",
    .severity = Severity::Error,
    .effect = "The folder is listed as a package without a name, is handed to Windows Installer and fails.",
    .cure = "Rename the folder.",
    .explanation =
        "Packages are looked for by the end of their name, and folders are not told apart from files."};

inline constexpr Rule supportedOsIgnored{
    .id = "supported-os-ignored",
    .severity = Severity::Warning,
    .effect = "The software is installed or offered on the other systems as well.",
    .cure = "Put the package into Optional, or leave SUPPORTEDOS out.",
    .explanation =
        "Only what lies in the folder Optional is left out by SUPPORTEDOS. The software of other folders "
        "may list all systems, which changes nothing."};

inline constexpr Rule supportedOsSingle{.id = "supported-os-single",
                                        .severity = Severity::Warning,
                                        .effect = "The software is offered on every system.",
                                        .cure = "Close the entry by \";\".",
                                        .explanation = "A SUPPORTEDOS without any \";\" is not compared."};

inline constexpr Rule supportedOsUnknown{
    .id = "supported-os-unknown",
    .severity = Severity::Warning,
    .effect = "The entry fits no system, so the software is not offered there.",
    .cure = "Write WINDOWS_VISTA, WINDOWS_7, WINDOWS_8 or WINDOWS_BLUE, without blanks.",
    .explanation =
        "WINDOWS_BLUE stands for Windows 8.1 and everything later, Windows 10 and 11 among them. Names are "
        "compared exactly."};

inline constexpr Rule startAppUnclosed{
    .id = "startapp-unclosed",
    .severity = Severity::Error,
    .effect = "The program is not started at the end.",
    .cure = "Close each program by \";\".",
    .explanation =
        "The STARTAPP values of all packages are put together, and each part that a \";\" closes is started. "
        "What is not closed runs into the next package's program."};

inline constexpr Rule startAppNoFile{
    .id = "startapp-no-file",
    .severity = Severity::Error,
    .effect = "Nothing is started, and the programs after it are not started either.",
    .cure = "Write the path from the target folder, as in Inkwell\\InkwellMonitor.exe;.",
    .explanation = "No package of the tree installs a file of that name. .exe may be left out."};

inline constexpr Rule deviceType{
    .id = "device-type",
    .severity = Severity::Warning,
    .effect = "The software is installed for every device, whether it can scan and fax or not.",
    .cure = "Write PRINTER, SCANNER or FAX, in capitals.",
    .explanation =
        "DEVICETYPE is compared exactly with these words. Applications for scanners and faxes are left out "
        "for "
        "devices that are none."};

inline constexpr Rule appType{
    .id = "app-type",
    .severity = Severity::Warning,
    .effect = "The package is no configuration tool and offers no connection.",
    .cure = "Write DRIVERCONFIG, V4DRIVERCONFIG or NIMBOJET.",
    .explanation = "APPTYPE is compared exactly with these words, and means nothing otherwise."};

inline constexpr Rule flagProperty{
    .id = "flag-property",
    .severity = Severity::Warning,
    .effect = "The property counts as not set.",
    .cure = "Write YES for DISCOVERY, and TRUE for FORCEREINSTALL.",
    .explanation = "The two are compared with these words, in any case of letters."};

inline constexpr Rule propertyMisspelt{
    .id = "property-misspelt",
    .severity = Severity::Warning,
    .effect = "The wizard does not find the property and goes on without it.",
    .cure = "Correct the name.",
    .explanation = "Names of properties are compared exactly, in the case in which they are written."};

inline constexpr Rule propertyLanguage{
    .id = "property-language",
    .severity = Severity::Warning,
    .effect = "Nobody sees the translation.",
    .cure = "Write the LANGUAGE_ID of one of the language files after the point.",
    .explanation =
        "Brevanto.dll takes a property such as ProductName.1031 where the LANGUAGE_ID of the wizard is that "
        "number."};

inline constexpr Rule valueHoldsTag{
    .id = "value-holds-tag",
    .severity = Severity::Error,
    .effect = "The value is cut, or other properties are read out of it.",
    .cure = "Remove the tag from the value.",
    .explanation = "The wizard gets the properties as a text of tags, in which nothing is escaped."};

inline constexpr Rule toolNotUnpackable{
    .id = "tool-not-unpackable",
    .severity = Severity::Error,
    .effect = "The configuration tool is not unpacked, and the button New does nothing.",
    .cure = "Put InstallFiles into the AdminExecuteSequence table.",
    .explanation = "The tool is unpacked by an administrative installation, which runs that table."};

inline constexpr Rule toolMisplaced{
    .id = "tool-misplaced",
    .severity = Severity::Error,
    .effect = "The wizard does not find the tool that it has unpacked, and the button New does nothing.",
    .cure =
        "Let the program lie in <vendor>\\DriverConfig\\Morvane.exe, or <vendor>\\ArdentisKit\\Ardentis.exe.",
    .explanation =
        "The wizard looks for the program below the folder to which it unpacks, in a folder named by OEM, or "
        "\"Printer\"."};

inline constexpr Rule dotNetMissing{
    .id = "dotnet-missing",
    .severity = Severity::Error,
    .effect = "On a system without .NET Framework 4 the installation ends with an error.",
    .cure = "Put the setup program of .NET Framework 4 into the folder DotNet.",
    .explanation =
        "A package that lists NETFRAMEWORK40 in SecureCustomProperties makes the wizard start the first .exe "
        "or "
        ".msi file of that folder."};

inline constexpr Rule dotNetSeveral{
    .id = "dotnet-several",
    .severity = Severity::Warning,
    .effect = "Another program than the setup of .NET Framework may be started.",
    .cure = "Keep one .exe or .msi file in the folder DotNet.",
    .explanation = "The first one that the system lists is started."};

}  // namespace rules

void CheckCatalogue(const Package& package, Report& report);

}  // namespace packagecheck
