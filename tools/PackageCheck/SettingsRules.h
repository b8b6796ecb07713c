// Rules of what the settings say.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule settingsMissing{
    "settings-missing",
    Severity::Error,
    "The program ends at once, without a message.",
    "Put defaultInstallSettings.xml into the folder Setup.",
    "Every package needs this file. It says whose software this is and which drivers are offered.",
};

inline constexpr Rule vendorMissing{
    "vendor-missing",
    Severity::Error,
    "The vendor is called \"Printer\" in the window, in the names of folders and in the names of printers.",
    "Set OEM.",
    "OEM names the folder of the logs, the folder below Program Files and the registry key of the log. "
    "Without it \"Printer\" stands for the vendor, and an error is in the log.",
};

inline constexpr Rule vendorCharacters{
    "vendor-characters",
    Severity::Error,
    "The folders of the logs and of the programs cannot be made, or lie elsewhere.",
    "Choose a vendor that can be the name of a folder, and put no quote into PRODUCT_NAME.",
    "OEM becomes part of paths: no character of \\ / : * ? \" < > | and no point or blank at its end. A "
    "quote in OEM or PRODUCT_NAME also ends the value on the command line of the configuration tool.",
};

inline constexpr Rule flagValue{
    "flag-value",
    Severity::Error,
    "The flag counts as false.",
    "Write true or false.",
    "A flag is true for \"true\" in any case of letters and for \"1\". Every other text is false, \"yes\" "
    "and \"on\" among them.",
};

inline constexpr Rule strictFlagValue{
    "strict-flag-value",
    Severity::Error,
    "The flag counts as not set.",
    "Write the one text that means yes.",
    "AMAZON_SUPPORTED is set by \"TRUE\" in capitals; USB_SUPPORTED, PO_NAME_FROM_DISCOVERY and "
    "SHOW_REGISTRATION are set by \"1\". Nothing else sets them.",
};

inline constexpr Rule tagWithoutEffect{
    "tag-without-effect",
    Severity::Warning,
    "The tag has no effect beside the other settings of this package.",
    "Remove it, or change the setting that takes its effect away.",
    "Some tags are read under conditions only. The message names the one that is not met here.",
};

inline constexpr Rule silentCannotBegin{
    "silent-cannot-begin",
    Severity::Warning,
    "A silent run ends at once without installing anything, unless it is started with -ip.",
    "Set HIDE_DISCOVERY to true.",
    "A silent run needs to know its printers: HIDE_DISCOVERY says that the settings do, -ip names one.",
};

inline constexpr Rule silentNeedsDotNet{
    "silent-needs-dotnet",
    Severity::Warning,
    "On a system without .NET Framework 4 the silent run ends before it installs anything.",
    "Roll .NET Framework out before this package, or leave the package that needs it out.",
    "A silent run never starts the setup program of .NET Framework, since that shows windows.",
};

inline constexpr Rule runWithoutQuestion{
    "run-without-question",
    Severity::Warning,
    "The installation begins as soon as the program is started, before the user has seen a page.",
    "Leave the Start page, the licence or the page of the printers in; or set SILENT_INSTALL.",
    "HIDE_START, HIDE_EULA and HIDE_DISCOVERY together leave nothing in front of the Progress page.",
};

inline constexpr Rule runWithoutProgress{
    "run-without-progress",
    Severity::Warning,
    "The user sees nothing while packages are installed, and has no way to cancel.",
    "Remove HIDE_PROGRESS, or set SILENT_INSTALL.",
    "Progress and the Cancel button of the installation are on the Progress page alone.",
};

inline constexpr Rule runWithoutEnd{
    "run-without-end",
    Severity::Warning,
    "The window closes at the end without saying how the installation went.",
    "Remove HIDE_FINAL, or set SILENT_INSTALL.",
    "What was installed and what has failed is shown by the Finish pages alone.",
};

inline constexpr Rule modelForm{
    "model-form",
    Severity::Error,
    "The entry is passed over.",
    "Write it as key, \":\" and value.",
    "MODEL_NAME and MODEL_NAME_FAX are \"brand:model\", MODEL_PRODUCT_CODE is \"series:code|code\".",
};

inline constexpr Rule modelRepeated{
    "model-repeated",
    Severity::Warning,
    "Only the first entry of the key counts.",
    "Remove one of the two.",
    "The entries of a list are looked up by their keys, which stand in front of the first \":\".",
};

inline constexpr Rule modelBrand{
    "model-brand",
    Severity::Warning,
    "The printer or its driver gets an empty name.",
    "Add an entry for OEM_NAME, written in the same way.",
    "The model is looked up by OEM_NAME, exactly as it is written there.",
};

inline constexpr Rule productCodeForm{
    "product-code-form",
    Severity::Warning,
    "The link to the help goes without the product code.",
    "Write the code as OEM_NAME, a blank and the rest, as in \"Halvenny Loom 210\".",
    "The link takes what follows OEM_NAME in the code. A code without it, or that ends with it, gives the "
    "link nothing.",
};

inline constexpr Rule subnetForm{
    "subnet-form",
    Severity::Error,
    "The search finds nothing.",
    "Write SUBNETADDRESS as address, \":\" and mask, as in 10.2.0.0:255.255.0.0.",
    "The value goes to the library that searches as it stands.",
};

inline constexpr Rule kindOfPackage{
    "upd-value",
    Severity::Warning,
    "The value selects nothing: printers are named as without UPD.",
    "Set UPD to 0, 1 or 2.",
    "0 limits the search to the series of MODEL_NAME, 1 takes the name of the product from MODEL_NAME, and 2 "
    "adds WEBDRIVERVER to the names of printers.",
};

inline constexpr Rule manufacturerForm{
    "manufacturer-form",
    Severity::Warning,
    "The choice of the entry leaves the search without the number of its vendor, or another entry is "
    "preselected.",
    "Write each entry as name, \":\" and number, divided by \"|\".",
    "The number goes to the search as OEMBYTE. An entry without a name is left out of the list on the page "
    "and counted nevertheless.",
};

inline constexpr Rule manufacturerDefault{
    "manufacturer-default",
    Severity::Warning,
    "No manufacturer is preselected, and Next is not to be pressed before the user selects one.",
    "Set DEFAULT_MANUFACTURER to one of the names in MANUFACTURERS.",
    "The names are compared exactly.",
};

inline constexpr Rule linkScheme{
    "link-scheme",
    Severity::Error,
    "The link opens nothing, or starts what the system takes the text for.",
    "Write a whole address that begins with https://.",
    "The value is handed to the system as it stands, with the language after it, and the wizard has the "
    "rights of an administrator.",
};

inline constexpr Rule linkQuery{
    "link-query",
    Severity::Warning,
    "The address that is opened holds two question marks, and the site may not understand it.",
    "Give INFOCENTER_LINK no query of its own.",
    "The wizard adds ?loc= and the language, or ?productCode= and both, to INFOCENTER_LINK.",
};

}  // namespace rules

void CheckSettings(const Package& package, Report& report);

}  // namespace packagecheck
