// Rules of what the settings say.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule settingsMissing{
    .id = "settings-missing",
    .severity = Severity::Error,
    .effect = "The program ends at once, without a message.",
    .cure = "Put defaultInstallSettings.xml into the folder Setup.",
    .explanation =
        "Every package needs this file. It says whose software this is and which drivers are offered."};

inline constexpr Rule vendorMissing{
    .id = "vendor-missing",
    .severity = Severity::Error,
    .effect =
        "The vendor is called \"Printer\" in the window, in the names of folders and in the names of "
        "printers.",
    .cure = "Set OEM.",
    .explanation =
        "OEM names the folder of the logs, the folder below Program Files and the registry key of the log. "
        "Without it \"Printer\" stands for the vendor, and an error is in the log."};

inline constexpr Rule vendorCharacters{
    .id = "vendor-characters",
    .severity = Severity::Error,
    .effect = "The folders of the logs and of the programs cannot be made, or lie elsewhere.",
    .cure = "Choose a vendor that can be the name of a folder, and put no quote into PRODUCT_NAME.",
    .explanation =
        "OEM becomes part of paths: no character of \\ / : * ? \" < > | and no point or blank at its end. A "
        "quote in OEM or PRODUCT_NAME also ends the value on the command line of the configuration tool."};

inline constexpr Rule flagValue{.id = "flag-value",
                                .severity = Severity::Error,
                                .effect = "The flag counts as false.",
                                .cure = "Write true or false.",
                                .explanation =
                                    "A flag is true for \"true\" in any case of letters and for \"1\". Every "
                                    "other text is false, \"yes\" and "
                                    "\"on\" among them."};

inline constexpr Rule strictFlagValue{
    .id = "strict-flag-value",
    .severity = Severity::Error,
    .effect = "The flag counts as not set.",
    .cure = "Write the one text that means yes.",
    .explanation =
        "AMAZON_SUPPORTED is set by \"TRUE\" in capitals; USB_SUPPORTED, PO_NAME_FROM_DISCOVERY and "
        "SHOW_REGISTRATION are set by \"1\". Nothing else sets them."};

inline constexpr Rule tagWithoutEffect{
    .id = "tag-without-effect",
    .severity = Severity::Warning,
    .effect = "The tag has no effect beside the other settings of this package.",
    .cure = "Remove it, or change the setting that takes its effect away.",
    .explanation =
        "Some tags are read under conditions only. The message names the one that is not met here."};

inline constexpr Rule silentCannotBegin{
    .id = "silent-cannot-begin",
    .severity = Severity::Warning,
    .effect = "A silent run ends at once without installing anything, unless it is started with -ip.",
    .cure = "Set HIDE_DISCOVERY to true.",
    .explanation =
        "A silent run needs to know its printers: HIDE_DISCOVERY says that the settings do, -ip names one."};

inline constexpr Rule silentNeedsDotNet{
    .id = "silent-needs-dotnet",
    .severity = Severity::Warning,
    .effect = "On a system without .NET Framework 4 the silent run ends before it installs anything.",
    .cure = "Roll .NET Framework out before this package, or leave the package that needs it out.",
    .explanation =
        "A silent run never starts the setup program of .NET Framework, since that shows windows."};

inline constexpr Rule runWithoutQuestion{
    .id = "run-without-question",
    .severity = Severity::Warning,
    .effect = "The installation begins as soon as the program is started, before the user has seen a page.",
    .cure = "Leave the Start page, the licence or the page of the printers in; or set SILENT_INSTALL.",
    .explanation =
        "HIDE_START, HIDE_EULA and HIDE_DISCOVERY together leave nothing in front of the Progress page."};

inline constexpr Rule runWithoutProgress{
    .id = "run-without-progress",
    .severity = Severity::Warning,
    .effect = "The user sees nothing while packages are installed, and has no way to cancel.",
    .cure = "Remove HIDE_PROGRESS, or set SILENT_INSTALL.",
    .explanation = "Progress and the Cancel button of the installation are on the Progress page alone."};

inline constexpr Rule runWithoutEnd{
    .id = "run-without-end",
    .severity = Severity::Warning,
    .effect = "The window closes at the end without saying how the installation went.",
    .cure = "Remove HIDE_FINAL, or set SILENT_INSTALL.",
    .explanation = "What was installed and what has failed is shown by the Finish pages alone."};

inline constexpr Rule modelForm{
    .id = "model-form",
    .severity = Severity::Error,
    .effect = "The entry is passed over.",
    .cure = "Write it as key, \":\" and value.",
    .explanation =
        "MODEL_NAME and MODEL_NAME_FAX are \"brand:model\", MODEL_PRODUCT_CODE is \"series:code|code\"."};

inline constexpr Rule modelRepeated{
    .id = "model-repeated",
    .severity = Severity::Warning,
    .effect = "Only the first entry of the key counts.",
    .cure = "Remove one of the two.",
    .explanation =
        "The entries of a list are looked up by their keys, which stand in front of the first \":\"."};

inline constexpr Rule modelBrand{
    .id = "model-brand",
    .severity = Severity::Warning,
    .effect = "The printer or its driver gets an empty name.",
    .cure = "Add an entry for OEM_NAME, written in the same way.",
    .explanation = "The model is looked up by OEM_NAME, exactly as it is written there."};

inline constexpr Rule productCodeForm{
    .id = "product-code-form",
    .severity = Severity::Warning,
    .effect = "The link to the help goes without the product code.",
    .cure = "Write the code as OEM_NAME, a blank and the rest, as in \"Halvenny Loom 210\".",
    .explanation =
        "The link takes what follows OEM_NAME in the code. A code without it, or that ends with it, gives "
        "the link nothing."};

inline constexpr Rule subnetForm{
    .id = "subnet-form",
    .severity = Severity::Error,
    .effect = "The search finds nothing.",
    .cure = "Write SUBNETADDRESS as address, \":\" and mask, as in 10.2.0.0:255.255.0.0.",
    .explanation = "The value goes to the library that searches as it stands."};

inline constexpr Rule kindOfPackage{.id = "upd-value",
                                    .severity = Severity::Warning,
                                    .effect = "The value selects nothing: printers are named as without UPD.",
                                    .cure = "Set UPD to 0, 1 or 2.",
                                    .explanation =
                                        "0 limits the search to the series of MODEL_NAME, 1 takes the name "
                                        "of the product from MODEL_NAME, and 2 "
                                        "adds WEBDRIVERVER to the names of printers."};

inline constexpr Rule manufacturerForm{
    .id = "manufacturer-form",
    .severity = Severity::Warning,
    .effect =
        "The choice of the entry leaves the search without the number of its vendor, or another entry is "
        "preselected.",
    .cure = "Write each entry as name, \":\" and number, divided by \"|\".",
    .explanation =
        "The number goes to the search as OEMBYTE. An entry without a name is left out of the list on the "
        "page "
        "and counted nevertheless."};

inline constexpr Rule manufacturerDefault{
    .id = "manufacturer-default",
    .severity = Severity::Warning,
    .effect = "No manufacturer is preselected, and Next is not to be pressed before the user selects one.",
    .cure = "Set DEFAULT_MANUFACTURER to one of the names in MANUFACTURERS.",
    .explanation = "The names are compared exactly."};

inline constexpr Rule linkScheme{
    .id = "link-scheme",
    .severity = Severity::Error,
    .effect = "The link opens nothing, or starts what the system takes the text for.",
    .cure = "Write a whole address that begins with https://.",
    .explanation =
        "The value is handed to the system as it stands, with the language after it, and the wizard has the "
        "rights of an administrator."};

inline constexpr Rule linkQuery{
    .id = "link-query",
    .severity = Severity::Warning,
    .effect = "The address that is opened holds two question marks, and the site may not understand it.",
    .cure = "Give INFOCENTER_LINK no query of its own.",
    .explanation = "The wizard adds ?loc= and the language, or ?productCode= and both, to INFOCENTER_LINK."};

}  // namespace rules

void CheckSettings(const Package& package, Report& report);

}  // namespace packagecheck
