// The names of the tags by which the parts of the program talk to each other, in one place.
#pragma once

#include <string_view>

namespace Tag {

// Flags.
inline constexpr std::wstring_view SILENT_INSTALL = L"SILENT_INSTALL";
inline constexpr std::wstring_view INSTALL_FROM_CONFIG = L"INSTALL_FROM_CONFIG";
inline constexpr std::wstring_view HIDE_START = L"HIDE_START";
inline constexpr std::wstring_view HIDE_EULA = L"HIDE_EULA";
inline constexpr std::wstring_view HIDE_CONNECTIVITY = L"HIDE_CONNECTIVITY";
// Written only; nothing reads it.
inline constexpr std::wstring_view HIDE_SECURITY = L"HIDE_SECURITY";
inline constexpr std::wstring_view HIDE_DISCOVERY = L"HIDE_DISCOVERY";
inline constexpr std::wstring_view HIDE_PROGRESS = L"HIDE_PROGRESS";
inline constexpr std::wstring_view HIDE_FINAL = L"HIDE_FINAL";
inline constexpr std::wstring_view SHOW_MANUFACTURERS = L"SHOW_MANUFACTURERS";
inline constexpr std::wstring_view TAG_DIALOG_SHOW_BYPASS = L"TAG_DIALOG_SHOW_BYPASS";
inline constexpr std::wstring_view DIALOG_ADD_PORT = L"DIALOG_ADD_PORT";
inline constexpr std::wstring_view OPTIONAL_INSTALL = L"OPTIONAL_INSTALL";
inline constexpr std::wstring_view APPS_ONLY_PACKAGE = L"APPS_ONLY_PACKAGE";
inline constexpr std::wstring_view REBOOT = L"REBOOT";
inline constexpr std::wstring_view DOTNET_INSTALLED = L"DOTNET_INSTALLED";
inline constexpr std::wstring_view DOTNET_FAILED = L"DOTNET_FAILED";
inline constexpr std::wstring_view ADD_PORT = L"ADD_PORT";
inline constexpr std::wstring_view SET_DEFAULT = L"SET_DEFAULT";
inline constexpr std::wstring_view CONFIG_APPLY_FUTURE = L"CONFIG_APPLY_FUTURE";

// Values that the package's files supply.
inline constexpr std::wstring_view OEM = L"OEM";
inline constexpr std::wstring_view OEM_NAME = L"OEM_NAME";
inline constexpr std::wstring_view PRINTER_NAME = L"PRINTER_NAME";
inline constexpr std::wstring_view PO_NAME_FROM_DISCOVERY = L"PO_NAME_FROM_DISCOVERY";
inline constexpr std::wstring_view DEFAULT_PRINTER_NAME = L"DEFAULT_PRINTER_NAME";
inline constexpr std::wstring_view MODEL_NAME = L"MODEL_NAME";
inline constexpr std::wstring_view MODEL_NAME_FAX = L"MODEL_NAME_FAX";
inline constexpr std::wstring_view MODEL_PRODUCT_CODE = L"MODEL_PRODUCT_CODE";
inline constexpr std::wstring_view PRODUCT_NAME = L"PRODUCT_NAME";
inline constexpr std::wstring_view UPD = L"UPD";
inline constexpr std::wstring_view WEBDRIVERVER = L"WEBDRIVERVER";
inline constexpr std::wstring_view WIN8_DRVTYPES = L"WIN8_DRVTYPES";
inline constexpr std::wstring_view WINXP_DRVTYPES = L"WINXP_DRVTYPES";
inline constexpr std::wstring_view AMAZON_SUPPORTED = L"AMAZON_SUPPORTED";
inline constexpr std::wstring_view USB_SUPPORTED = L"USB_SUPPORTED";
// The default drivers; on Windows 8 and later their tags begin with "WIN8_".
inline constexpr std::wstring_view NO_COMM_DEFAULT = L"NO_COMM_DEFAULT";
inline constexpr std::wstring_view MONO_DEFAULT = L"MONO_DEFAULT";
inline constexpr std::wstring_view COLOR_DEFAULT = L"COLOR_DEFAULT";
inline constexpr std::wstring_view MODEL_DEFAULT_OVERRIDE = L"MODEL_DEFAULT_OVERRIDE";
inline constexpr std::wstring_view SUBNETADDRESS = L"SUBNETADDRESS";
inline constexpr std::wstring_view INFOCENTER_LINK = L"INFOCENTER_LINK";

// Values that the run writes.
inline constexpr std::wstring_view PORT_TYPE = L"PORT_TYPE";
inline constexpr std::wstring_view PORT_NAME = L"PORT_NAME";
inline constexpr std::wstring_view HOST_NAME = L"HOST_NAME";
inline constexpr std::wstring_view IPADDRESS = L"IPADDRESS";
inline constexpr std::wstring_view NETWORK_PATH = L"NETWORK_PATH";
inline constexpr std::wstring_view DRIVERCONFIG_PATH = L"DRIVERCONFIG_PATH";
inline constexpr std::wstring_view CONFIG_EXE_PATH = L"CONFIG_EXE_PATH";
inline constexpr std::wstring_view OMBREL_DESC = L"OMBREL_DESC";
inline constexpr std::wstring_view TARGET_DIR = L"TARGET_DIR";
inline constexpr std::wstring_view STARTAPP = L"STARTAPP";
inline constexpr std::wstring_view INSTALL_STATUS = L"INSTALL_STATUS";
inline constexpr std::wstring_view APP_INSTALLATION_STATUS = L"APP_INSTALLATION_STATUS";
inline constexpr std::wstring_view SHOW_REGISTRATION = L"SHOW_REGISTRATION";
inline constexpr std::wstring_view INFOCENTER_SHORTCUT = L"INFOCENTER_SHORTCUT";
inline constexpr std::wstring_view EXACT_INFOCENTER_LINK = L"EXACT_INFOCENTER_LINK";

// What the user picks on the pages.
inline constexpr std::wstring_view MANUFACTURERS = L"MANUFACTURERS";
inline constexpr std::wstring_view DEFAULT_MANUFACTURER = L"DEFAULT_MANUFACTURER";
inline constexpr std::wstring_view OEMBYTE = L"OEMBYTE";
inline constexpr std::wstring_view USB = L"USB";
// Written only, down to SELECTED_DRIVER; nothing reads them.
inline constexpr std::wstring_view NIMBOJET = L"NIMBOJET";
inline constexpr std::wstring_view DISCOVERED_DEVICE = L"DISCOVERED_DEVICE";
inline constexpr std::wstring_view DISCOVERY_DONE = L"DISCOVERY_DONE";
inline constexpr std::wstring_view PRINT_DEVICE = L"PRINT_DEVICE";
inline constexpr std::wstring_view SELECTED_DRIVER = L"SELECTED_DRIVER";
inline constexpr std::wstring_view DRIVER_MODEL_NAME = L"DRIVER_MODEL_NAME";
inline constexpr std::wstring_view DISCOVER_PARAMS = L"DISCOVER_PARAMS";
inline constexpr std::wstring_view PRODUCT_REGISTRATION_LINK = L"PRODUCT_REGISTRATION_LINK";
inline constexpr std::wstring_view REGISTRATION_LINK = L"REGISTRATION_LINK";

// Tags of a device document, beside those above that it shares.
inline constexpr std::wstring_view DEVICE = L"DEVICE";
inline constexpr std::wstring_view DRIVER_ID = L"DRIVER_ID";
inline constexpr std::wstring_view DETECT_PRINTER = L"DETECT_PRINTER";
inline constexpr std::wstring_view PRINTER_SERIES_NAME = L"PRINTER_SERIES_NAME";
inline constexpr std::wstring_view PRINTER_MODEL_NAME = L"PRINTER_MODEL_NAME";

// Tags of the documents that discovery and its libraries exchange.
inline constexpr std::wstring_view UNICAST_ADDRESS = L"UnicastAddress";
inline constexpr std::wstring_view REMOTE_SUBNETS = L"RemoteSubnets";
inline constexpr std::wstring_view CPDATTACHED = L"CPDATTACHED";
inline constexpr std::wstring_view IPLIST = L"IPLIST";
inline constexpr std::wstring_view TIMEOUT = L"TIMEOUT";
inline constexpr std::wstring_view SERIESSTRID = L"SERIESSTRID";
inline constexpr std::wstring_view MODEL_STRING = L"1284STRID";
inline constexpr std::wstring_view IPNAME = L"IPNAME";
inline constexpr std::wstring_view MACUAA = L"MACUAA";
inline constexpr std::wstring_view MULTI_FUNCTION_MODEL = L"aioModelName";
inline constexpr std::wstring_view COLORTYPE = L"COLORTYPE";
inline constexpr std::wstring_view FAXINSTALLED = L"FAXINSTALLED";

// Tags of the document that says what a driver's installation is to set up.
inline constexpr std::wstring_view PRINTER_INFO = L"PRINTER_INFO";
inline constexpr std::wstring_view DRIVER_PRODUCT_NAME = L"DRIVER_PRODUCT_NAME";

// Tags of the document that says what a package's installation is to do, beside those above.
inline constexpr std::wstring_view LANGUAGEID = L"LANGUAGEID";
inline constexpr std::wstring_view DEVICEFRIENDLYNAME = L"DEVICEFRIENDLYNAME";
inline constexpr std::wstring_view TAG_REINSTALL = L"TAG_REINSTALL";

// Tags of a line of the status document.
inline constexpr std::wstring_view NAME = L"NAME";
inline constexpr std::wstring_view STATUS = L"STATUS";

// Tags of the documents that the MSI library sends while it works.
inline constexpr std::wstring_view PERCENT = L"PERCENT";
inline constexpr std::wstring_view FILE_IN_USE = L"FILE_IN_USE";
inline constexpr std::wstring_view RM_FILE_IN_USE = L"RM_FILE_IN_USE";
inline constexpr std::wstring_view APPLICATION_NAME = L"APPLICATION_NAME";

// Tags of the message to the page for a port by hand. No page of this program sends them.
inline constexpr std::wstring_view SHOW_UNC = L"SHOW_UNC";
inline constexpr std::wstring_view SHOW_DRIVER_LIST = L"SHOW_DRIVER_LIST";
inline constexpr std::wstring_view FROM_DIALOG = L"FROM_DIALOG";

}  // namespace Tag

// The keys of the language files that the program asks for.
namespace TextKey {

inline constexpr std::wstring_view READING_ORDER = L"READING_ORDER";
inline constexpr std::wstring_view LANGUAGE_ID = L"LANGUAGE_ID";
inline constexpr std::wstring_view LBL_LOCALIZED_AND = L"LBL_LOCALIZED_AND";
inline constexpr std::wstring_view INSTALL_TITLE = L"INSTALL_TITLE";
inline constexpr std::wstring_view PERMISSION_ERROR_TITLE = L"PERMISSION_ERROR_TITLE";
inline constexpr std::wstring_view PERMISSION_ERROR_TEXT = L"PERMISSION_ERROR_TEXT";
inline constexpr std::wstring_view DISK_FULL_ERROR_TITLE = L"DISK_FULL_ERROR_TITLE";
inline constexpr std::wstring_view DISK_FULL_ERROR_TEXT = L"DISK_FULL_ERROR_TEXT";
inline constexpr std::wstring_view INSTALL_ALREADY_RUNNING_TITLE = L"INSTALL_ALREADY_RUNNING_TITLE";
inline constexpr std::wstring_view INSTALL_ALREADY_RUNNING_TEXT = L"INSTALL_ALREADY_RUNNING_TEXT";
inline constexpr std::wstring_view ERROR_TITLE = L"ERROR_TITLE";
inline constexpr std::wstring_view ERROR_TEXT = L"ERROR_TEXT";
inline constexpr std::wstring_view MULTIINSTANCE_ERROR_TITLE = L"MULTIINSTANCE_ERROR_TITLE";
inline constexpr std::wstring_view MULTIINSTANCE_ERROR_TEXT = L"MULTIINSTANCE_ERROR_TEXT";
inline constexpr std::wstring_view CANCEL_CONFIRMATION_TEXT = L"CANCEL_CONFIRMATION_TEXT";
inline constexpr std::wstring_view OPTIONAL_SOFTWARE_CANCEL_CONFIRMATION_TEXT =
    L"OPTIONAL_SOFTWARE_CANCEL_CONFIRMATION_TEXT";
inline constexpr std::wstring_view INFOCENTER_LINK_LABEL = L"INFOCENTER_LINK_LABEL";
inline constexpr std::wstring_view DISCOVERY_INFOCENTER_LINK_LABEL = L"DISCOVERY_INFOCENTER_LINK_LABEL";
inline constexpr std::wstring_view DOTNET = L"DOTNET";
inline constexpr std::wstring_view PREPARE_INSTALL_TEXT = L"PREPARE_INSTALL_TEXT";
inline constexpr std::wstring_view INSTALLING_TEXT = L"INSTALLING_TEXT";
inline constexpr std::wstring_view UNINSTALLING_TEXT = L"UNINSTALLING_TEXT";
inline constexpr std::wstring_view CANCELING_TEXT = L"CANCELING_TEXT";
inline constexpr std::wstring_view CANCEL_BUTTON = L"CANCEL_BUTTON";

inline constexpr std::wstring_view ADD_NETWORK_PRINTER = L"ADD_NETWORK_PRINTER";
inline constexpr std::wstring_view ADVANCED_TEXT = L"ADVANCED_TEXT";
inline constexpr std::wstring_view AGREE_BUTTON = L"AGREE_BUTTON";
inline constexpr std::wstring_view AMAZON_INSTALL_COMPLETE_HEADER = L"AMAZON_INSTALL_COMPLETE_HEADER";
inline constexpr std::wstring_view AMAZON_INSTALL_COMPLETE_TEXT1 = L"AMAZON_INSTALL_COMPLETE_TEXT1";
inline constexpr std::wstring_view AMAZON_INSTALL_USB_PATH_COMPLETE_TEXT1 =
    L"AMAZON_INSTALL_USB_PATH_COMPLETE_TEXT1";
inline constexpr std::wstring_view AMAZON_WELCOME_HEADER = L"AMAZON_WELCOME_HEADER";
inline constexpr std::wstring_view AMAZON_WELCOME_TEXT = L"AMAZON_WELCOME_TEXT";
inline constexpr std::wstring_view AUTO_RESTART_TEXT = L"AUTO_RESTART_TEXT";
inline constexpr std::wstring_view BASIC_TEXT = L"BASIC_TEXT";
inline constexpr std::wstring_view CANCELED_TEXT = L"CANCELED_TEXT";
inline constexpr std::wstring_view CODE_PAGE = L"CODE_PAGE";
inline constexpr std::wstring_view COLOR = L"COLOR";
inline constexpr std::wstring_view COMPLETED_TEXT = L"COMPLETED_TEXT";
inline constexpr std::wstring_view CONFIG_APPLY_FUTURE_TEXT = L"CONFIG_APPLY_FUTURE_TEXT";
inline constexpr std::wstring_view CONFIG_SETTINGS_BUTTON = L"CONFIG_SETTINGS_BUTTON";
inline constexpr std::wstring_view CONFIG_SETTINGS_TEXT = L"CONFIG_SETTINGS_TEXT";
inline constexpr std::wstring_view CONNECTIVITY_TEXT = L"CONNECTIVITY_TEXT";
inline constexpr std::wstring_view CONNECTIVITY_TITLE = L"CONNECTIVITY_TITLE";
inline constexpr std::wstring_view CONNECT_WITH_NIMBOJET_TEXT = L"CONNECT_WITH_NIMBOJET_TEXT";
inline constexpr std::wstring_view CONNECT_WITH_USB_TEXT = L"CONNECT_WITH_USB_TEXT";
inline constexpr std::wstring_view DISAGREE_BUTTON = L"DISAGREE_BUTTON";
inline constexpr std::wstring_view DISCOVERED_DEVICES_LIST = L"DISCOVERED_DEVICES_LIST";
inline constexpr std::wstring_view DISCOVERED_LIST_COLUMN_IPADDRESS = L"DISCOVERED_LIST_COLUMN_IPADDRESS";
inline constexpr std::wstring_view DISCOVERED_LIST_COLUMN_MACADDRESS = L"DISCOVERED_LIST_COLUMN_MACADDRESS";
inline constexpr std::wstring_view DISCOVERED_LIST_COLUMN_MODEL = L"DISCOVERED_LIST_COLUMN_MODEL";
inline constexpr std::wstring_view DISCOVERED_LIST_COLUMN_PRINTER = L"DISCOVERED_LIST_COLUMN_PRINTER";
inline constexpr std::wstring_view DISCOVERED_LIST_COLUMN_PRINTERNAME = L"DISCOVERED_LIST_COLUMN_PRINTERNAME";
inline constexpr std::wstring_view DISCOVERED_LIST_COLUMN_SCANNER = L"DISCOVERED_LIST_COLUMN_SCANNER";
inline constexpr std::wstring_view DISCOVERED_LIST_COLUMN_SEARCHING = L"DISCOVERED_LIST_COLUMN_SEARCHING";
inline constexpr std::wstring_view DISCOVERED_PORTS = L"DISCOVERED_PORTS";
inline constexpr std::wstring_view DISCOVERY_TITLE = L"DISCOVERY_TITLE";
inline constexpr std::wstring_view DOWNLOAD_INSTALL_TITLE = L"DOWNLOAD_INSTALL_TITLE";
inline constexpr std::wstring_view DO_NOT_CLOSE_TEXT = L"DO_NOT_CLOSE_TEXT";
inline constexpr std::wstring_view DRIVER_INSTALL_COMPLETE_TEXT = L"DRIVER_INSTALL_COMPLETE_TEXT";
inline constexpr std::wstring_view DUP_PORT_TEXT = L"DUP_PORT_TEXT";
inline constexpr std::wstring_view EMPTY_DRIVERCONFIG_PATH = L"EMPTY_DRIVERCONFIG_PATH";
inline constexpr std::wstring_view ERROR_LINK = L"ERROR_LINK";
inline constexpr std::wstring_view ETHERNETRADIO_TEXT = L"ETHERNETRADIO_TEXT";
inline constexpr std::wstring_view ETHERNET_TEXT = L"ETHERNET_TEXT";
inline constexpr std::wstring_view FAILED_TEXT = L"FAILED_TEXT";
inline constexpr std::wstring_view FILES_IN_USE_HEADER = L"FILES_IN_USE_HEADER";
inline constexpr std::wstring_view FILE_IN_USE_TEXT = L"FILE_IN_USE_TEXT";
inline constexpr std::wstring_view FINISH_BUTTON = L"FINISH_BUTTON";
inline constexpr std::wstring_view GEN_ERROR_TITLE = L"GEN_ERROR_TITLE";
inline constexpr std::wstring_view HELP_BUTTON = L"HELP_BUTTON";
inline constexpr std::wstring_view INSTALLATION_FAILED_TEXT = L"INSTALLATION_FAILED_TEXT";
inline constexpr std::wstring_view INSTALL_BUTTON = L"INSTALL_BUTTON";
inline constexpr std::wstring_view INSTALL_CANCELED_TEXT = L"INSTALL_CANCELED_TEXT";
inline constexpr std::wstring_view INSTALL_COMPLETE_TEXT = L"INSTALL_COMPLETE_TEXT";
inline constexpr std::wstring_view INVALID_NET_PATH_TEXT = L"INVALID_NET_PATH_TEXT";
inline constexpr std::wstring_view INVALID_PATH_TEXT = L"INVALID_PATH_TEXT";
inline constexpr std::wstring_view IP_ADDRESS = L"IP_ADDRESS";
inline constexpr std::wstring_view IP_ADDRESS_TEXT = L"IP_ADDRESS_TEXT";
inline constexpr std::wstring_view IP_HOSTNAME_SEARCH = L"IP_HOSTNAME_SEARCH";
inline constexpr std::wstring_view IP_HOSTNAME_SEARCH_TOOLTIP = L"IP_HOSTNAME_SEARCH_TOOLTIP";
inline constexpr std::wstring_view IP_PORT = L"IP_PORT";
inline constexpr std::wstring_view LICENSE_AGREEMENT = L"LICENSE_AGREEMENT";
inline constexpr std::wstring_view LICENSE_SCROLL_TEXT = L"LICENSE_SCROLL_TEXT";
inline constexpr std::wstring_view LIST_DISPLAY_LINK = L"LIST_DISPLAY_LINK";
inline constexpr std::wstring_view LOAD_FILE = L"LOAD_FILE";
inline constexpr std::wstring_view LOCAL_SUBNET_SEARCH = L"LOCAL_SUBNET_SEARCH";
inline constexpr std::wstring_view LOCAL_SUBNET_SEARCH_TOOLTIP = L"LOCAL_SUBNET_SEARCH_TOOLTIP";
inline constexpr std::wstring_view MANUFACTURER_LABEL = L"MANUFACTURER_LABEL";
inline constexpr std::wstring_view MANUFACTURER_TEXT = L"MANUFACTURER_TEXT";
inline constexpr std::wstring_view MODIFY_SEARCH_TEXT = L"MODIFY_SEARCH_TEXT";
inline constexpr std::wstring_view MONO = L"MONO";
inline constexpr std::wstring_view MSG_HOSTNAME_LIMIT = L"MSG_HOSTNAME_LIMIT";
inline constexpr std::wstring_view MSG_INVALID_IP = L"MSG_INVALID_IP";
inline constexpr std::wstring_view MSG_INVALID_IPHOST_NAME = L"MSG_INVALID_IPHOST_NAME";
inline constexpr std::wstring_view MSG_INVALID_SUBNET = L"MSG_INVALID_SUBNET";
inline constexpr std::wstring_view MSG_IP_LIMIT = L"MSG_IP_LIMIT";
inline constexpr std::wstring_view MSG_SUBNET_LIMIT = L"MSG_SUBNET_LIMIT";
inline constexpr std::wstring_view NETWORK_PATH_TEXT = L"NETWORK_PATH_TEXT";
inline constexpr std::wstring_view NEW_FILE = L"NEW_FILE";
inline constexpr std::wstring_view NEXT_BUTTON = L"NEXT_BUTTON";
inline constexpr std::wstring_view NOT_SUPPORTED_TEXT = L"NOT_SUPPORTED_TEXT";
inline constexpr std::wstring_view NO_PRINTER_FOUND = L"NO_PRINTER_FOUND";
inline constexpr std::wstring_view OK_BUTTON = L"OK_BUTTON";
inline constexpr std::wstring_view PORT_NAME_TEXT = L"PORT_NAME_TEXT";
inline constexpr std::wstring_view PORT_TYPE_TEXT = L"PORT_TYPE_TEXT";
inline constexpr std::wstring_view PRINT_DRIVER_TEXT = L"PRINT_DRIVER_TEXT";
inline constexpr std::wstring_view PRODUCT_REGISTRATION_LINK_LABEL = L"PRODUCT_REGISTRATION_LINK_LABEL";
inline constexpr std::wstring_view REBOOT_HEADER_TEXT = L"REBOOT_HEADER_TEXT";
inline constexpr std::wstring_view REBOOT_LATER_TEXT = L"REBOOT_LATER_TEXT";
inline constexpr std::wstring_view REBOOT_NOW_TEXT = L"REBOOT_NOW_TEXT";
inline constexpr std::wstring_view REBOOT_TEXT = L"REBOOT_TEXT";
inline constexpr std::wstring_view REFRESH_TEXT = L"REFRESH_TEXT";
inline constexpr std::wstring_view REGISTRATION_LINK = L"REGISTRATION_LINK";
inline constexpr std::wstring_view REQUIRED_DEPENDENCY = L"REQUIRED_DEPENDENCY";
inline constexpr std::wstring_view RESET_TEXT = L"RESET_TEXT";
inline constexpr std::wstring_view RETRY_BUTTON = L"RETRY_BUTTON";
inline constexpr std::wstring_view RM_FILE_IN_USE_TEXT = L"RM_FILE_IN_USE_TEXT";
inline constexpr std::wstring_view SELECT_NOTE1_TEXT = L"SELECT_NOTE1_TEXT";
inline constexpr std::wstring_view SELECT_NOTE2_TEXT = L"SELECT_NOTE2_TEXT";
inline constexpr std::wstring_view SELECT_PORT_TITLE = L"SELECT_PORT_TITLE";
inline constexpr std::wstring_view SELECT_PRINTSCAN_TEXT = L"SELECT_PRINTSCAN_TEXT";
inline constexpr std::wstring_view SELECT_PRINT_TEXT = L"SELECT_PRINT_TEXT";
inline constexpr std::wstring_view SOFTWARE_LIST_DISPLAY_TITLE = L"SOFTWARE_LIST_DISPLAY_TITLE";
inline constexpr std::wstring_view SOFTWARE_LIST_DISPLAY_WINDOW_TITLE = L"SOFTWARE_LIST_DISPLAY_WINDOW_TITLE";
inline constexpr std::wstring_view SUBNET_MASK = L"SUBNET_MASK";
inline constexpr std::wstring_view SUBNET_SEARCH = L"SUBNET_SEARCH";
inline constexpr std::wstring_view SUBNET_SEARCH_TOOLTIP = L"SUBNET_SEARCH_TOOLTIP";
inline constexpr std::wstring_view SW_BYPASS_OPTIONAL = L"SW_BYPASS_OPTIONAL";
inline constexpr std::wstring_view SW_BYPASS_REINSTALL = L"SW_BYPASS_REINSTALL";
inline constexpr std::wstring_view SW_BYPASS_TEXT = L"SW_BYPASS_TEXT";
inline constexpr std::wstring_view SW_BYPASS_TITLE = L"SW_BYPASS_TITLE";
inline constexpr std::wstring_view UNC_PORT = L"UNC_PORT";
inline constexpr std::wstring_view UPDATED_TEXT = L"UPDATED_TEXT";
inline constexpr std::wstring_view USBRADIO_TEXT = L"USBRADIO_TEXT";
inline constexpr std::wstring_view USB_FINAL_TEXT = L"USB_FINAL_TEXT";
inline constexpr std::wstring_view USB_REBOOT_TEXT = L"USB_REBOOT_TEXT";
inline constexpr std::wstring_view USB_TEXT = L"USB_TEXT";
inline constexpr std::wstring_view WELCOME_HEADER = L"WELCOME_HEADER";
inline constexpr std::wstring_view WELCOME_TEXT = L"WELCOME_TEXT";

}  // namespace TextKey
