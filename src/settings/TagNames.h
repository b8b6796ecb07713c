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
inline constexpr std::wstring_view UPD = L"UPD";
inline constexpr std::wstring_view WEBDRIVERVER = L"WEBDRIVERVER";
inline constexpr std::wstring_view WIN8_DRVTYPES = L"WIN8_DRVTYPES";
inline constexpr std::wstring_view WINXP_DRVTYPES = L"WINXP_DRVTYPES";
inline constexpr std::wstring_view AMAZON_SUPPORTED = L"AMAZON_SUPPORTED";
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

// Tags of a device document, beside those above that it shares.
inline constexpr std::wstring_view DEVICE = L"DEVICE";
inline constexpr std::wstring_view DRIVER_ID = L"DRIVER_ID";
inline constexpr std::wstring_view DETECT_PRINTER = L"DETECT_PRINTER";
inline constexpr std::wstring_view PRINTER_SERIES_NAME = L"PRINTER_SERIES_NAME";
inline constexpr std::wstring_view PRINTER_MODEL_NAME = L"PRINTER_MODEL_NAME";

// Tags of the document that tells a driver's installation what to set up.
inline constexpr std::wstring_view PRINTER_INFO = L"PRINTER_INFO";
inline constexpr std::wstring_view DRIVER_PRODUCT_NAME = L"DRIVER_PRODUCT_NAME";

// Tags of the documents that the MSI library sends while it works.
inline constexpr std::wstring_view PERCENT = L"PERCENT";

}  // namespace Tag

// The keys of the language files that the program asks for.
namespace TextKey {

inline constexpr std::wstring_view READING_ORDER = L"READING_ORDER";
inline constexpr std::wstring_view LANGUAGE_ID = L"LANGUAGE_ID";
inline constexpr std::wstring_view LBL_LOCALIZED_AND = L"LBL_LOCALIZED_AND";
inline constexpr std::wstring_view INSTALL_TITLE = L"INSTALL_TITLE";
inline constexpr std::wstring_view PERMISSION_ERROR_TITLE = L"PERMISSION_ERROR_TITLE";
inline constexpr std::wstring_view PERMISSION_ERROR_TEXT = L"PERMISSION_ERROR_TEXT";
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

}  // namespace TextKey
