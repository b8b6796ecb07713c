#include "tools/PackageCheck/FormatEntries.h"

#include <algorithm>

#include "catalogue/PropertyNames.h"
#include "settings/TagNames.h"

namespace packagecheck {

namespace {

constexpr std::string_view flagForm = "`true` or `false`";
constexpr std::string_view trueForm = "`TRUE`, in capitals";
constexpr std::string_view oneForm = "`1`";
constexpr std::string_view textForm = "text";
constexpr std::string_view driverForm = "a `DRIVERID`";
constexpr std::string_view driversForm = "`DRIVERID`s, divided by `;`";
constexpr std::string_view linkForm = "address of the web";

constexpr std::string_view byPages = "the order of the pages";
constexpr std::string_view byNames = "the names of printers";
constexpr std::string_view bySearch = "the search";
constexpr std::string_view byProposal = "the pages of printers and ports";
constexpr std::string_view byDocument = "the drivers' documents";

constexpr std::string_view countsAsFalse = "false";
constexpr std::string_view countsAsEmpty = "empty";
constexpr std::string_view noProposal = "no proposal";
constexpr std::string_view noLink = "no link";

constexpr FormatEntry settingsEntries[] = {
    {Tag::SILENT_INSTALL, flagForm, "shows no pages and installs at once", byPages, countsAsFalse},
    {Tag::HIDE_START, flagForm, "leaves the Start page out", byPages, countsAsFalse},
    {Tag::HIDE_EULA, flagForm, "leaves the licence out", byPages, countsAsFalse},
    {Tag::HIDE_CONNECTIVITY, flagForm, "leaves the page of the connection out, which `AMAZON_SUPPORTED` has",
     byPages, countsAsFalse},
    {Tag::HIDE_DISCOVERY, flagForm, "leaves the page of the printers and the search out", byPages,
     countsAsFalse},
    {Tag::HIDE_PROGRESS, flagForm, "leaves the Progress page out", byPages, countsAsFalse},
    {Tag::HIDE_FINAL, flagForm, "leaves the Finish pages out", byPages, countsAsFalse},
    {Tag::SHOW_MANUFACTURERS, flagForm, "shows the page of the manufacturers", byPages, countsAsFalse},
    {Tag::INSTALL_PICKED_DRIVER_ONLY, flagForm,
     "installs one printer driver alone: the one that the user picks, or the default on USB. Scan and fax "
     "drivers and applications come along as ever. With predefined devices, and where nobody picks a driver "
     "(a silent run, a printer by `-ip`), every accepted driver is installed all the same",
     "the choice of the packages", "every accepted driver is installed"},
    {Tag::CONFIG_APPLY_FUTURE, flagForm, "the configuration holds for later printers of the driver as well",
     byDocument, countsAsFalse},
    {Tag::ADD_PORT, flagForm, "the port is to be made; the pages set it by what the user picks", byDocument,
     countsAsFalse},
    {Tag::SET_DEFAULT, flagForm, "the printer becomes the default; the pages set it by what the user picks",
     byDocument, countsAsFalse},
    {Tag::PO_NAME_FROM_DISCOVERY, oneForm, "keeps the name that the search found, or `PRINTER_NAME`", byNames,
     "the name is made of the tags below"},
    {Tag::AMAZON_SUPPORTED, trueForm,
     "the second variant: other texts at the start and the end, the page of the connection, and optional "
     "software along with the rest",
     "pages and installation", "the first variant"},
    {Tag::USB_SUPPORTED, oneForm, "offers the connection by USB", "the page of the printers", "not offered"},
    {Tag::SHOW_REGISTRATION, oneForm,
     "shows the link of `REGISTRATION_LINK` on the Restart page; a cancel takes it back", "the Restart page",
     "not shown"},
    {Tag::MODEL_NAME, "repeated: brand, `:`, model",
     "name of the model by `OEM_NAME`; with `UPD` `0` the series that the search lists", "names, search",
     countsAsEmpty},
    {Tag::MODEL_NAME_FAX, "repeated: brand, `:`, model", "name of the fax model by `OEM_NAME`", byNames,
     countsAsEmpty},
    {Tag::MODEL_PRODUCT_CODE, "repeated: series, `:`, codes divided by the bar `\\|`",
     "codes of products for the link to the help. Each begins with `OEM_NAME` and a blank", "the help link",
     "the link goes without a code"},
    {Tag::DEVICE, "repeated: a device", "a predefined printer; in `PackageUserSettings.xml` alone",
     "settings files", "no predefined printer"},
    {Tag::OEM, "text that can be the name of a folder",
     "the vendor: in the window, the folders of logs and programs, the registry key of the log",
     "settings files, names, installation", "`Printer`, and an error in the log"},
    {Tag::OEM_NAME, textForm, "the brand in the names of printers, and the key into the lists of models",
     byNames, countsAsEmpty},
    {Tag::OEMBYTE, "number", "handed to `Sondrix.dll`, which lists the devices of that vendor", bySearch,
     "all vendors"},
    {Tag::PRINTER_NAME, textForm, "name of the printer; the pages overwrite it", byNames, countsAsEmpty},
    {Tag::DEFAULT_PRINTER_NAME, textForm, "the model in names such as `OEM_NAME DEFAULT_PRINTER_NAME`",
     byNames, countsAsEmpty},
    {Tag::PRODUCT_NAME, textForm, "the product on the command line of the older configuration tool",
     "the driver configuration", countsAsEmpty},
    {Tag::UPD, "`0`, `1` or `2`",
     "`0` limits the search to the series of `MODEL_NAME`, `1` takes the product's name from `MODEL_NAME`, "
     "`2` adds `WEBDRIVERVER` to the names of printers",
     "names, search", "none of the three"},
    {Tag::WEBDRIVERVER, textForm, "the version in parentheses after a printer's name, with `UPD` `2`",
     byNames, countsAsEmpty},
    {Tag::WIN8_DRVTYPES, driversForm, "printer drivers that are accepted from Windows 8 on",
     "the list of drivers", "no printer driver"},
    {Tag::WINXP_DRVTYPES, driversForm, "printer drivers that are accepted before Windows 8",
     "the list of drivers", "no printer driver"},
    {Tag::NO_COMM_DEFAULT, driverForm,
     "driver that is proposed for a device that does not say its colour, and for USB, before Windows 8",
     byProposal, noProposal},
    {Tag::MONO_DEFAULT, driverForm,
     "driver that is proposed for a device in black and white, before Windows 8", byProposal, noProposal},
    {Tag::COLOR_DEFAULT, driverForm, "driver that is proposed for a device in colour, before Windows 8",
     byProposal, noProposal},
    {L"WIN8_NO_COMM_DEFAULT", driverForm, "the same as `NO_COMM_DEFAULT`, from Windows 8 on", byProposal,
     noProposal},
    {L"WIN8_MONO_DEFAULT", driverForm, "the same as `MONO_DEFAULT`, from Windows 8 on", byProposal,
     noProposal},
    {L"WIN8_COLOR_DEFAULT", driverForm, "the same as `COLOR_DEFAULT`, from Windows 8 on", byProposal,
     noProposal},
    {Tag::MODEL_DEFAULT_OVERRIDE, "entries of device, `:`, `DRIVERID` and `;`",
     "drivers by device, as in `Loom 200 Series:HVMONO;Loom 340c:HVCOLOR;`, before the defaults by colour. "
     "The "
     "device's text is found anywhere in it, so put a shorter name before a longer one that contains it",
     "the page of the printers", "the defaults by colour"},
    {Tag::SUBNETADDRESS, "address, `:`, mask",
     "the search goes to this subnet, as in `10.2.0.0:255.255.0.0`; not read where `IPADDRESS` is set",
     bySearch, "the local network"},
    {Tag::IPADDRESS, "address or host", "the search asks this one device; drivers get it as well",
     "search, drivers' documents", "the local network"},
    {Tag::HOST_NAME, "address or host", "host of the port; the pages overwrite it", byDocument,
     countsAsEmpty},
    {Tag::PORT_NAME, textForm, "name of the port; the pages overwrite it", byDocument, countsAsEmpty},
    {Tag::PORT_TYPE, "a type of port, as in a device", "type of the port; the pages overwrite it", byDocument,
     countsAsEmpty},
    {Tag::NETWORK_PATH, "path, as in `\\\\server\\printer`", "a shared printer", byDocument, countsAsEmpty},
    {Tag::DRIVERCONFIG_PATH, "path on the machine",
     "configuration file of the first driver that is selected; goes when the user selects another one",
     "driver configuration, drivers' documents", countsAsEmpty},
    {Tag::CONFIG_EXE_PATH, "path on the machine",
     "the tool that applies the configuration; goes along with it", byDocument, countsAsEmpty},
    {Tag::OMBREL_DESC, textForm, "what the configuration is called; goes along with it", byDocument,
     countsAsEmpty},
    {Tag::DISCOVER_PARAMS, "`UnicastAddress` or `RemoteSubnets` as an element",
     "the search as the search page writes it; comes before `IPADDRESS` and `SUBNETADDRESS`", bySearch,
     "made of these two"},
    {Tag::DRIVER_MODEL_NAME, textForm, "model of the printer; the page of the printers overwrites it",
     "the help link", countsAsEmpty},
    {Tag::STARTAPP, "programs, each closed by `;`", "started at the end, before those of the packages",
     "the end of the run", "those of the packages alone"},
    {Tag::INFOCENTER_LINK, linkForm,
     "base of the link to the help. `?loc=` and the language go after it, or `?productCode=` and both",
     "the Start and Finish pages, packages", noLink},
    {Tag::PRODUCT_REGISTRATION_LINK, linkForm, "where a product is registered", "the Start and Finish pages",
     noLink},
    {Tag::REGISTRATION_LINK, linkForm, "where a user registers", "the Restart page", noLink},
    {Tag::MANUFACTURERS, "entries of name, `:` and number, divided by the bar `\\|`",
     "brands to choose from; the choice becomes `OEM_NAME` and `OEMBYTE`", "the page of the manufacturers",
     "an empty list"},
    {Tag::DEFAULT_MANUFACTURER, "a name of `MANUFACTURERS`", "the brand that is preselected",
     "the page of the manufacturers", "none"},
};

constexpr FormatEntry deviceEntries[] = {
    {Tag::DRIVER_ID,
     "a `DRIVERID`, `SCAN` or `Fax`",
     "the driver that gets the device. The wizard takes it out of what it hands on",
     "the wizard",
     {}},
    {Tag::DETECT_PRINTER,
     "`true`, `True` or `TRUE`",
     "`PRINTER_NAME` is replaced by the name of the printer that the user picks",
     "the wizard",
     {}},
    {Tag::PRINTER_NAME,
     "220 characters, without `\\`, `,` and `!`",
     "name of the printer",
     "the package",
     {}},
    {Tag::PORT_NAME, textForm, "name of the port", "wizard and package", {}},
    {Tag::PORT_TYPE,
     "`Standard TCP/IP Port`, `Local Port`, `USB`, or `OEM` and ` Nimbo Jet`",
     "type of the port",
     "wizard and package",
     {}},
    {Tag::HOST_NAME, "address or host, 48 characters", "host of a network port", "the package", {}},
    {Tag::IPADDRESS,
     "address",
     "address of the printer; also the preset of the search while that is not hidden",
     "search and package",
     {}},
    {Tag::ADD_PORT,
     flagForm,
     "the wizard overwrites it: true for a port that the system lacks, except on USB",
     "the package",
     {}},
    {Tag::SET_DEFAULT, flagForm, "the printer becomes the default", "the package", {}},
    {Tag::NETWORK_PATH, "path, as in `\\\\server\\printer`", "a shared printer", "the package", {}},
    {Tag::DRIVERCONFIG_PATH,
     "file in `Setup`, with an extension",
     "configuration file. The wizard copies it to the machine and hands the copy's path on",
     "wizard and package",
     {}},
    {Tag::CONFIG_EXE_PATH,
     "part of the name of an .msi file in `Setup`",
     "package of the configuration tool. The wizard unpacks it and hands the tool's path on",
     "wizard and package",
     {}},
    {Tag::CONFIG_APPLY_FUTURE,
     flagForm,
     "the configuration holds for later printers as well",
     "the package",
     {}},
    {Tag::OMBREL_DESC, textForm, "what the configuration is called", "the package", {}},
    {Tag::PRINTER_SERIES_NAME, textForm, "series, for the link to the help", "the wizard", {}},
    {Tag::PRINTER_MODEL_NAME, textForm, "model, for the link to the help", "the wizard", {}},
    {Tag::DRIVER_PRODUCT_NAME, textForm, "name of the product", "the package", {}},
    {Tag::DEFAULT_PRINTER_NAME, textForm, "the model in names that the package makes", "the package", {}},
    {Tag::OEM_NAME, textForm, "the brand in names that the package makes", "the package", {}},
    {L"LOCATION", textForm, "location of the printer", "`PrinterQueue.dll`", {}},
    {L"COMMENT", textForm, "comment of the printer", "`PrinterQueue.dll`", {}},
    {L"PROTOCOL", "`LPR`", "anything else, or nothing, is raw data", "`PrinterQueue.dll`", {}},
    {L"PORT_NUMBER", "number", "the TCP port, if it is not 9100, or 515 for LPR", "`PrinterQueue.dll`", {}},
    {L"LPR_QUEUE", textForm, "the queue for LPR, if it is not `lp`", "`PrinterQueue.dll`", {}},
};

constexpr std::string_view ofAll = "every package";
constexpr std::string_view ofApplications = "applications";
constexpr std::string_view ofPrinterDrivers = "printer drivers";

constexpr FormatEntry propertyEntries[] = {
    {Property::ProductName, textForm, "name in the lists", ofAll, "an empty name"},
    {Property::ProductVersion, "`1.2.3`", "version, by which older and newer products are told apart", ofAll,
     countsAsEmpty},
    {Property::MSIDESCRIPTION, textForm, "description", ofApplications, countsAsEmpty},
    {Property::DEVICETYPE, "`PRINTER`, `SCANNER` or `FAX`", "the devices that it is for", ofAll,
     "fits every device"},
    {Property::APPTYPE, "`DRIVERCONFIG`, `V4DRIVERCONFIG` or `NIMBOJET`",
     "a configuration tool for older or newer drivers, or the connection of that name", ofApplications,
     "an ordinary application"},
    {Property::STARTAPP, "programs, each closed by `;`",
     "programs to start at the end, relative to the target folder, with their arguments. The longest part, "
     "up "
     "to a blank, that names a file is the program; `.exe` may be left out",
     ofAll, "nothing is started"},
    {Property::DEPENDENTAPPS, "file names",
     "packages in `Dependents` to install along; a name that is part of "
     "another one matches too",
     "what lies in `Applications`", "none"},
    {Property::SUPPORTEDOS, "`WINDOWS_VISTA`, `WINDOWS_7`, `WINDOWS_8`, `WINDOWS_BLUE`, divided by `;`",
     "systems that it is offered on, the last one for 8.1 and later; a single name without `;` passes "
     "everywhere",
     "what lies in `Optional`", "every system"},
    {Property::INSTALLSIZE, "`12 MB`", "megabytes that it takes", ofAll, "0"},
    {Property::DISCOVERY, "`YES`, in any case", "the application searches for devices", ofApplications, "no"},
    {Property::FORCEREINSTALL, "`TRUE`, in any case",
     "it is run again over a product that is installed, and settles by itself what to do", ofApplications,
     "no"},
    {Property::SecureCustomProperties, "properties, divided by `;`",
     "what Windows hands on to the part with the rights. It holds `NETFRAMEWORK40` where the package needs "
     ".NET "
     "Framework 4.0, without which a silent run stops",
     ofAll, "nothing is handed on"},
    {Property::DRIVERID, "text",
     "`SCAN`, `Fax`, or an identifier that `WIN8_DRVTYPES` or `WINXP_DRVTYPES` lists. "
     "One that holds `V4` is of the newer generation",
     "drivers", "installed on every system, and led to by nothing"},
    {Property::DRIVERNAME, textForm, "name in the list of drivers", ofPrinterDrivers, "an empty line"},
    {Property::STREAMDISPLAYNAME, textForm, "what is put after a printer's name", ofPrinterDrivers,
     "nothing"},
    {Property::ISOMBRELSUPPORTED, trueForm, "the driver can be configured", ofPrinterDrivers, "no"},
};

}  // namespace

std::span<const FormatEntry> SettingsEntries() {
    return settingsEntries;
}

std::span<const FormatEntry> DeviceEntries() {
    return deviceEntries;
}

std::span<const FormatEntry> PropertyEntries() {
    return propertyEntries;
}

const FormatEntry* FindEntry(std::span<const FormatEntry> entries, std::wstring_view name) {
    const auto found = std::ranges::find(entries, name, &FormatEntry::name);
    return found == entries.end() ? nullptr : &*found;
}

}  // namespace packagecheck
