// The names of the tags by which the parts of the program talk to each other, in one place.
#pragma once

#include "settings/TagName.h"

namespace Tag {

// Flags.
inline constexpr FlagTag SILENT_INSTALL(L"SILENT_INSTALL");
inline constexpr FlagTag INSTALL_FROM_CONFIG(L"INSTALL_FROM_CONFIG");
inline constexpr FlagTag HIDE_START(L"HIDE_START");
inline constexpr FlagTag HIDE_EULA(L"HIDE_EULA");
inline constexpr FlagTag HIDE_CONNECTIVITY(L"HIDE_CONNECTIVITY");
// Written only; nothing reads it.
inline constexpr FlagTag HIDE_SECURITY(L"HIDE_SECURITY");
inline constexpr FlagTag HIDE_DISCOVERY(L"HIDE_DISCOVERY");
inline constexpr FlagTag HIDE_PROGRESS(L"HIDE_PROGRESS");
inline constexpr FlagTag HIDE_FINAL(L"HIDE_FINAL");
inline constexpr FlagTag SHOW_MANUFACTURERS(L"SHOW_MANUFACTURERS");
inline constexpr FlagTag TAG_DIALOG_SHOW_BYPASS(L"TAG_DIALOG_SHOW_BYPASS");
inline constexpr FlagTag DIALOG_ADD_PORT(L"DIALOG_ADD_PORT");
inline constexpr FlagTag OPTIONAL_INSTALL(L"OPTIONAL_INSTALL");
inline constexpr FlagTag APPS_ONLY_PACKAGE(L"APPS_ONLY_PACKAGE");
inline constexpr FlagTag REBOOT(L"REBOOT");
inline constexpr FlagTag DOTNET_INSTALLED(L"DOTNET_INSTALLED");
inline constexpr FlagTag DOTNET_FAILED(L"DOTNET_FAILED");
inline constexpr FlagTag ADD_PORT(L"ADD_PORT");
inline constexpr FlagTag SET_DEFAULT(L"SET_DEFAULT");
inline constexpr FlagTag CONFIG_APPLY_FUTURE(L"CONFIG_APPLY_FUTURE");

// Values that the package's files supply.
inline constexpr TextTag OEM(L"OEM");
inline constexpr TextTag OEM_NAME(L"OEM_NAME");
inline constexpr TextTag PRINTER_NAME(L"PRINTER_NAME");
inline constexpr StrictFlagTag PO_NAME_FROM_DISCOVERY(L"PO_NAME_FROM_DISCOVERY", L"1");
inline constexpr TextTag DEFAULT_PRINTER_NAME(L"DEFAULT_PRINTER_NAME");
inline constexpr ListTag MODEL_NAME(L"MODEL_NAME");
inline constexpr ListTag MODEL_NAME_FAX(L"MODEL_NAME_FAX");
inline constexpr ListTag MODEL_PRODUCT_CODE(L"MODEL_PRODUCT_CODE");
inline constexpr TextTag PRODUCT_NAME(L"PRODUCT_NAME");
inline constexpr TextTag UPD(L"UPD");
inline constexpr TextTag WEBDRIVERVER(L"WEBDRIVERVER");
inline constexpr TextTag WIN8_DRVTYPES(L"WIN8_DRVTYPES");
inline constexpr TextTag WINXP_DRVTYPES(L"WINXP_DRVTYPES");
inline constexpr StrictFlagTag AMAZON_SUPPORTED(L"AMAZON_SUPPORTED", L"TRUE");
inline constexpr FlagTag INSTALL_PICKED_DRIVER_ONLY(L"INSTALL_PICKED_DRIVER_ONLY");
inline constexpr StrictFlagTag USB_SUPPORTED(L"USB_SUPPORTED", L"1");
// The default drivers; on Windows 8 and later their tags begin with "WIN8_".
inline constexpr TextTag NO_COMM_DEFAULT(L"NO_COMM_DEFAULT");
inline constexpr TextTag MONO_DEFAULT(L"MONO_DEFAULT");
inline constexpr TextTag COLOR_DEFAULT(L"COLOR_DEFAULT");
inline constexpr TextTag MODEL_DEFAULT_OVERRIDE(L"MODEL_DEFAULT_OVERRIDE");
inline constexpr TextTag SUBNETADDRESS(L"SUBNETADDRESS");
inline constexpr TextTag INFOCENTER_LINK(L"INFOCENTER_LINK");

// Values that the run writes.
inline constexpr TextTag PORT_TYPE(L"PORT_TYPE");
inline constexpr TextTag PORT_NAME(L"PORT_NAME");
inline constexpr TextTag HOST_NAME(L"HOST_NAME");
inline constexpr TextTag IPADDRESS(L"IPADDRESS");
inline constexpr TextTag NETWORK_PATH(L"NETWORK_PATH");
inline constexpr TextTag DRIVERCONFIG_PATH(L"DRIVERCONFIG_PATH");
inline constexpr TextTag CONFIG_EXE_PATH(L"CONFIG_EXE_PATH");
inline constexpr TextTag OMBREL_DESC(L"OMBREL_DESC");
inline constexpr TextTag TARGET_DIR(L"TARGET_DIR");
inline constexpr TextTag STARTAPP(L"STARTAPP");
inline constexpr TextTag INSTALL_STATUS(L"INSTALL_STATUS");
inline constexpr TextTag APP_INSTALLATION_STATUS(L"APP_INSTALLATION_STATUS");
inline constexpr StrictFlagTag SHOW_REGISTRATION(L"SHOW_REGISTRATION", L"1");
inline constexpr TextTag INFOCENTER_SHORTCUT(L"INFOCENTER_SHORTCUT");
inline constexpr TextTag EXACT_INFOCENTER_LINK(L"EXACT_INFOCENTER_LINK");

// What the user picks on the pages.
inline constexpr TextTag MANUFACTURERS(L"MANUFACTURERS");
inline constexpr TextTag DEFAULT_MANUFACTURER(L"DEFAULT_MANUFACTURER");
inline constexpr TextTag OEMBYTE(L"OEMBYTE");
inline constexpr FlagTag USB(L"USB");
// Written only, down to SELECTED_DRIVER; nothing reads them.
inline constexpr FlagTag NIMBOJET(L"NIMBOJET");
inline constexpr FlagTag DISCOVERED_DEVICE(L"DISCOVERED_DEVICE");
inline constexpr FlagTag DISCOVERY_DONE(L"DISCOVERY_DONE");
inline constexpr FlagTag PRINT_DEVICE(L"PRINT_DEVICE");
inline constexpr TextTag SELECTED_DRIVER(L"SELECTED_DRIVER");
inline constexpr TextTag DRIVER_MODEL_NAME(L"DRIVER_MODEL_NAME");
inline constexpr TextTag DISCOVER_PARAMS(L"DISCOVER_PARAMS");
inline constexpr TextTag PRODUCT_REGISTRATION_LINK(L"PRODUCT_REGISTRATION_LINK");
inline constexpr TextTag REGISTRATION_LINK(L"REGISTRATION_LINK");

// Tags of a device document, beside those above that it shares.
inline constexpr ListTag DEVICE(L"DEVICE");
inline constexpr DocumentTag DRIVER_ID(L"DRIVER_ID");
inline constexpr DocumentTag DETECT_PRINTER(L"DETECT_PRINTER");
inline constexpr DocumentTag PRINTER_SERIES_NAME(L"PRINTER_SERIES_NAME");
inline constexpr DocumentTag PRINTER_MODEL_NAME(L"PRINTER_MODEL_NAME");

// Tags of the documents that discovery and its libraries exchange.
inline constexpr DocumentTag UNICAST_ADDRESS(L"UnicastAddress");
inline constexpr DocumentTag REMOTE_SUBNETS(L"RemoteSubnets");
inline constexpr DocumentTag CPDATTACHED(L"CPDATTACHED");
inline constexpr DocumentTag IPLIST(L"IPLIST");
inline constexpr DocumentTag TIMEOUT(L"TIMEOUT");
inline constexpr DocumentTag SERIESSTRID(L"SERIESSTRID");
inline constexpr DocumentTag MODEL_STRING(L"1284STRID");
inline constexpr DocumentTag IPNAME(L"IPNAME");
inline constexpr DocumentTag MACUAA(L"MACUAA");
inline constexpr DocumentTag MULTI_FUNCTION_MODEL(L"aioModelName");
inline constexpr DocumentTag COLORTYPE(L"COLORTYPE");
inline constexpr DocumentTag FAXINSTALLED(L"FAXINSTALLED");

// Tags of the document that says what a driver's installation is to set up.
inline constexpr DocumentTag PRINTER_INFO(L"PRINTER_INFO");
inline constexpr DocumentTag DRIVER_PRODUCT_NAME(L"DRIVER_PRODUCT_NAME");

// Tags of the document that says what a package's installation is to do, beside those above.
inline constexpr DocumentTag LANGUAGEID(L"LANGUAGEID");
inline constexpr DocumentTag DEVICEFRIENDLYNAME(L"DEVICEFRIENDLYNAME");
inline constexpr DocumentTag TAG_REINSTALL(L"TAG_REINSTALL");

// Tags of a line of the status document.
inline constexpr DocumentTag NAME(L"NAME");
inline constexpr DocumentTag STATUS(L"STATUS");

// Tags of the documents that the MSI library sends while it works.
inline constexpr DocumentTag PERCENT(L"PERCENT");
inline constexpr DocumentTag FILE_IN_USE(L"FILE_IN_USE");
inline constexpr DocumentTag RM_FILE_IN_USE(L"RM_FILE_IN_USE");
inline constexpr DocumentTag APPLICATION_NAME(L"APPLICATION_NAME");

// Tags of the message to the page for a port by hand. No page of this program sends them.
inline constexpr DocumentTag SHOW_UNC(L"SHOW_UNC");
inline constexpr DocumentTag SHOW_DRIVER_LIST(L"SHOW_DRIVER_LIST");
inline constexpr DocumentTag FROM_DIALOG(L"FROM_DIALOG");

}  // namespace Tag
