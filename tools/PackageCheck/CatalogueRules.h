// Rules of the .msi files of a package.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule msiUnreadable{
    "msi-unreadable",
    Severity::Error,
    "The package is listed without a name, is handed to Windows Installer and fails.",
    "Build the file again.",
    "A package that cannot be read enters the catalogue with empty fields. In the folder Drivers it counts "
    "as one that every system accepts.",
};

inline constexpr Rule msiMisplaced{
    "msi-misplaced",
    Severity::Error,
    "The wizard never finds the package.",
    "Move it to one of the folders of the tree.",
    "Packages are looked for straight in Applications and in the folders x86_x64 and x64 of Applications, "
    "Common, Optional, Dependents and Drivers, in Install and beside the settings. Nothing deeper is read.",
};

inline constexpr Rule msiNone{
    "msi-none",
    Severity::Warning,
    "The wizard installs nothing, and says that it has succeeded.",
    "Add a package to Applications or to Drivers.",
    "No package of the tree would ever be installed.",
};

inline constexpr Rule productNameMissing{
    "product-name-missing",
    Severity::Error,
    "The list of software has a line without a name.",
    "Set ProductName.",
    "The progress and the outcome of a package are shown under its ProductName.",
};

inline constexpr Rule productNameShared{
    "product-name-shared",
    Severity::Error,
    "The two packages share one line of the outcome, so that a success of the later one hides a failure.",
    "Give each package a ProductName of its own.",
    "Outcomes are kept by ProductName.",
};

inline constexpr Rule productCodeShared{
    "product-code-shared",
    Severity::Error,
    "The second package repairs the first one instead of being installed, or is passed over.",
    "Give each package a product code of its own, and put a package into one folder only.",
    "Windows Installer knows a product by its code.",
};

inline constexpr Rule upgradeCodeMissing{
    "upgrade-code-missing",
    Severity::Warning,
    "A newer version is installed beside the older one.",
    "Give the package an upgrade code, the same one for all versions.",
    "Versions of one software are known by their upgrade code.",
};

inline constexpr Rule upgradeCodeShared{
    "upgrade-code-shared",
    Severity::Error,
    "The installation of the second package removes the first one.",
    "Give each product an upgrade code of its own.",
    "By the upgrade code Windows Installer knows versions of one product. A package that removes older "
    "products of its code takes another product of the same code for one of them.",
};

inline constexpr Rule upgradeRowMissing{
    "upgrade-row-missing",
    Severity::Warning,
    "An older version stays on the system beside the new one.",
    "Add a row for the package's own upgrade code, without the flag that only detects, to the Upgrade table.",
    "Windows Installer removes what the rows of the Upgrade table find. A package with a new product code "
    "and without such a row replaces nothing.",
};

inline constexpr Rule upgradePropertyNotSecure{
    "upgrade-property-not-secure",
    Severity::Warning,
    "Where the package is installed by a user with raised rights, the older version may stay.",
    "List the ActionProperty of each row of the Upgrade table in SecureCustomProperties.",
    "What FindRelatedProducts finds reaches the part of the installation that has the rights only by a "
    "property of that list.",
};

inline constexpr Rule productVersion{
    "product-version",
    Severity::Warning,
    "A newer version is taken for the same one, and is not installed.",
    "Write three fields of at most 255, 255 and 65535, and count up one of them.",
    "Windows Installer compares three fields of a version. What follows them does not count.",
};

inline constexpr Rule securePropertyMissing{
    "secure-property-missing",
    Severity::Error,
    "The package is installed without what the wizard hands to it: printers are not made, or files go "
    "elsewhere.",
    "List the property in SecureCustomProperties.",
    "The package uses PRINTER_INFO, TARGET_DIR or another property of the wizard. Windows Installer hands it "
    "to the part of the installation that has the rights only if the list names it.",
};

inline constexpr Rule installSize{
    "install-size",
    Severity::Warning,
    "The size counts as 0, or as that many megabytes.",
    "Write the megabytes in front, as in 12 MB.",
    "The number at the start of INSTALLSIZE is read, whatever unit follows. A comma ends it.",
};

inline constexpr Rule installSizeMissing{
    "install-size-missing",
    Severity::Warning,
    "The package counts as taking no room.",
    "Set INSTALLSIZE to the megabytes that the package takes, as in 12 MB.",
    "The wizard reads the size from the property alone and does not look into the package.",
};

inline constexpr Rule summaryIncomplete{
    "summary-incomplete",
    Severity::Error,
    "Windows Installer refuses the package.",
    "Build the file with a tool that writes its summary information: template, page count, revision number.",
    "The template says for which platform and languages the package is, the page count which version of "
    "Windows Installer it needs (200 for 2.0), and the revision number is the code of the package. Without "
    "them it is not opened for an installation.",
};

inline constexpr Rule summaryVersion{
    "summary-version",
    Severity::Error,
    "Windows Installer refuses the package as one for a later version.",
    "Set InstallerVersion to 500 or less.",
    "The page count of the summary information is the version that the package needs, and 5.0 is the one "
    "that Windows has, from Windows 7 on.",
};

inline constexpr Rule msiFolder{
    "msi-folder",
    Severity::Error,
    "The folder is listed as a package without a name, is handed to Windows Installer and fails.",
    "Rename the folder.",
    "Packages are looked for by the end of their name, and folders are not told apart from files.",
};

inline constexpr Rule supportedOsIgnored{
    "supported-os-ignored",
    Severity::Warning,
    "The software is installed or offered on the other systems as well.",
    "Put the package into Optional, or leave SUPPORTEDOS out.",
    "Only what lies in the folder Optional is left out by SUPPORTEDOS. The software of other folders may "
    "list all systems, which changes nothing.",
};

inline constexpr Rule supportedOsSingle{
    "supported-os-single",
    Severity::Warning,
    "The software is offered on every system.",
    "Close the entry by \";\".",
    "A SUPPORTEDOS without any \";\" is not compared.",
};

inline constexpr Rule supportedOsUnknown{
    "supported-os-unknown",
    Severity::Warning,
    "The entry fits no system, so the software is not offered there.",
    "Write WINDOWS_VISTA, WINDOWS_7, WINDOWS_8 or WINDOWS_BLUE, without blanks.",
    "WINDOWS_BLUE stands for Windows 8.1 and everything later, Windows 10 and 11 among them. Names are "
    "compared exactly.",
};

inline constexpr Rule startAppUnclosed{
    "startapp-unclosed",
    Severity::Error,
    "The program is not started at the end.",
    "Close each program by \";\".",
    "The STARTAPP values of all packages are put together, and each part that a \";\" closes is started. "
    "What is not closed runs into the next package's program.",
};

inline constexpr Rule startAppNoFile{
    "startapp-no-file",
    Severity::Error,
    "Nothing is started, and the programs after it are not started either.",
    "Write the path from the target folder, as in Inkwell\\InkwellMonitor.exe;.",
    "No package of the tree installs a file of that name. .exe may be left out.",
};

inline constexpr Rule deviceType{
    "device-type",
    Severity::Warning,
    "The software is installed for every device, whether it can scan and fax or not.",
    "Write PRINTER, SCANNER or FAX, in capitals.",
    "DEVICETYPE is compared exactly with these words. Applications for scanners and faxes are left out for "
    "devices that are none.",
};

inline constexpr Rule appType{
    "app-type",
    Severity::Warning,
    "The package is no configuration tool and offers no connection.",
    "Write DRIVERCONFIG, V4DRIVERCONFIG or NIMBOJET.",
    "APPTYPE is compared exactly with these words, and means nothing otherwise.",
};

inline constexpr Rule flagProperty{
    "flag-property",
    Severity::Warning,
    "The property counts as not set.",
    "Write YES for DISCOVERY, and TRUE for FORCEREINSTALL.",
    "The two are compared with these words, in any case of letters.",
};

inline constexpr Rule propertyMisspelt{
    "property-misspelt",
    Severity::Warning,
    "The wizard does not find the property and goes on without it.",
    "Correct the name.",
    "Names of properties are compared exactly, in the case in which they are written.",
};

inline constexpr Rule propertyLanguage{
    "property-language",
    Severity::Warning,
    "Nobody sees the translation.",
    "Write the LANGUAGE_ID of one of the language files after the point.",
    "Brevanto.dll takes a property such as ProductName.1031 where the LANGUAGE_ID of the wizard is that "
    "number.",
};

inline constexpr Rule valueHoldsTag{
    "value-holds-tag",
    Severity::Error,
    "The value is cut, or other properties are read out of it.",
    "Remove the tag from the value.",
    "The wizard gets the properties as a text of tags, in which nothing is escaped.",
};

inline constexpr Rule toolNotUnpackable{
    "tool-not-unpackable",
    Severity::Error,
    "The configuration tool is not unpacked, and the button New does nothing.",
    "Put InstallFiles into the AdminExecuteSequence table.",
    "The tool is unpacked by an administrative installation, which runs that table.",
};

inline constexpr Rule toolMisplaced{
    "tool-misplaced",
    Severity::Error,
    "The wizard does not find the tool that it has unpacked, and the button New does nothing.",
    "Let the program lie in <vendor>\\DriverConfig\\Morvane.exe, or <vendor>\\ArdentisKit\\Ardentis.exe.",
    "The wizard looks for the program below the folder to which it unpacks, in a folder named by OEM, or "
    "\"Printer\".",
};

inline constexpr Rule dotNetMissing{
    "dotnet-missing",
    Severity::Error,
    "On a system without .NET Framework 4 the installation ends with an error.",
    "Put the setup program of .NET Framework 4 into the folder DotNet.",
    "A package that lists NETFRAMEWORK40 in SecureCustomProperties makes the wizard start the first .exe or "
    ".msi file of that folder.",
};

inline constexpr Rule dotNetSeveral{
    "dotnet-several",
    Severity::Warning,
    "Another program than the setup of .NET Framework may be started.",
    "Keep one .exe or .msi file in the folder DotNet.",
    "The first one that the system lists is started.",
};

}  // namespace rules

void CheckCatalogue(const Package& package, Report& report);

}  // namespace packagecheck
