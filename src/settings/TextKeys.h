// The keys of the texts that the program asks the language files for.
#pragma once

#include <string_view>

// The key of a text; empty for no text. The characters must outlive the object.
class TextId {
public:
    constexpr TextId() = default;
    explicit constexpr TextId(std::wstring_view key) : name(key) {}

    constexpr std::wstring_view Name() const noexcept { return name; }
    [[nodiscard]] constexpr bool empty() const noexcept { return name.empty(); }

    bool operator==(const TextId&) const = default;

private:
    std::wstring_view name;
};

namespace TextKey {

inline constexpr TextId READING_ORDER(L"READING_ORDER");
inline constexpr TextId LANGUAGE_ID(L"LANGUAGE_ID");
inline constexpr TextId LBL_LOCALIZED_AND(L"LBL_LOCALIZED_AND");
inline constexpr TextId INSTALL_TITLE(L"INSTALL_TITLE");
inline constexpr TextId PERMISSION_ERROR_TITLE(L"PERMISSION_ERROR_TITLE");
inline constexpr TextId PERMISSION_ERROR_TEXT(L"PERMISSION_ERROR_TEXT");
inline constexpr TextId DISK_FULL_ERROR_TITLE(L"DISK_FULL_ERROR_TITLE");
inline constexpr TextId DISK_FULL_ERROR_TEXT(L"DISK_FULL_ERROR_TEXT");
inline constexpr TextId INSTALL_ALREADY_RUNNING_TITLE(L"INSTALL_ALREADY_RUNNING_TITLE");
inline constexpr TextId INSTALL_ALREADY_RUNNING_TEXT(L"INSTALL_ALREADY_RUNNING_TEXT");
inline constexpr TextId ERROR_TITLE(L"ERROR_TITLE");
inline constexpr TextId ERROR_TEXT(L"ERROR_TEXT");
inline constexpr TextId MULTIINSTANCE_ERROR_TITLE(L"MULTIINSTANCE_ERROR_TITLE");
inline constexpr TextId MULTIINSTANCE_ERROR_TEXT(L"MULTIINSTANCE_ERROR_TEXT");
inline constexpr TextId CANCEL_CONFIRMATION_TEXT(L"CANCEL_CONFIRMATION_TEXT");
inline constexpr TextId OPTIONAL_SOFTWARE_CANCEL_CONFIRMATION_TEXT(
    L"OPTIONAL_SOFTWARE_CANCEL_CONFIRMATION_TEXT");
inline constexpr TextId INFOCENTER_LINK_LABEL(L"INFOCENTER_LINK_LABEL");
inline constexpr TextId DISCOVERY_INFOCENTER_LINK_LABEL(L"DISCOVERY_INFOCENTER_LINK_LABEL");
inline constexpr TextId DOTNET(L"DOTNET");
inline constexpr TextId PREPARE_INSTALL_TEXT(L"PREPARE_INSTALL_TEXT");
inline constexpr TextId INSTALLING_TEXT(L"INSTALLING_TEXT");
inline constexpr TextId UNINSTALLING_TEXT(L"UNINSTALLING_TEXT");
inline constexpr TextId CANCELING_TEXT(L"CANCELING_TEXT");
inline constexpr TextId CANCEL_BUTTON(L"CANCEL_BUTTON");

inline constexpr TextId ADD_NETWORK_PRINTER(L"ADD_NETWORK_PRINTER");
inline constexpr TextId ADVANCED_TEXT(L"ADVANCED_TEXT");
inline constexpr TextId AGREE_BUTTON(L"AGREE_BUTTON");
inline constexpr TextId AMAZON_INSTALL_COMPLETE_HEADER(L"AMAZON_INSTALL_COMPLETE_HEADER");
inline constexpr TextId AMAZON_INSTALL_COMPLETE_TEXT1(L"AMAZON_INSTALL_COMPLETE_TEXT1");
inline constexpr TextId AMAZON_INSTALL_USB_PATH_COMPLETE_TEXT1(L"AMAZON_INSTALL_USB_PATH_COMPLETE_TEXT1");
inline constexpr TextId AMAZON_WELCOME_HEADER(L"AMAZON_WELCOME_HEADER");
inline constexpr TextId AMAZON_WELCOME_TEXT(L"AMAZON_WELCOME_TEXT");
inline constexpr TextId AUTO_RESTART_TEXT(L"AUTO_RESTART_TEXT");
inline constexpr TextId BASIC_TEXT(L"BASIC_TEXT");
inline constexpr TextId CANCELED_TEXT(L"CANCELED_TEXT");
inline constexpr TextId CODE_PAGE(L"CODE_PAGE");
inline constexpr TextId COLOR(L"COLOR");
inline constexpr TextId COMPLETED_TEXT(L"COMPLETED_TEXT");
inline constexpr TextId CONFIG_APPLY_FUTURE_TEXT(L"CONFIG_APPLY_FUTURE_TEXT");
inline constexpr TextId CONFIG_SETTINGS_BUTTON(L"CONFIG_SETTINGS_BUTTON");
inline constexpr TextId CONFIG_SETTINGS_TEXT(L"CONFIG_SETTINGS_TEXT");
inline constexpr TextId CONNECTIVITY_TEXT(L"CONNECTIVITY_TEXT");
inline constexpr TextId CONNECTIVITY_TITLE(L"CONNECTIVITY_TITLE");
inline constexpr TextId CONNECT_WITH_NIMBOJET_TEXT(L"CONNECT_WITH_NIMBOJET_TEXT");
inline constexpr TextId CONNECT_WITH_USB_TEXT(L"CONNECT_WITH_USB_TEXT");
inline constexpr TextId DISAGREE_BUTTON(L"DISAGREE_BUTTON");
inline constexpr TextId DISCOVERED_DEVICES_LIST(L"DISCOVERED_DEVICES_LIST");
inline constexpr TextId DISCOVERED_LIST_ASCENDING(L"DISCOVERED_LIST_ASCENDING");
inline constexpr TextId DISCOVERED_LIST_COLUMN_IPADDRESS(L"DISCOVERED_LIST_COLUMN_IPADDRESS");
inline constexpr TextId DISCOVERED_LIST_COLUMN_MACADDRESS(L"DISCOVERED_LIST_COLUMN_MACADDRESS");
inline constexpr TextId DISCOVERED_LIST_COLUMN_MODEL(L"DISCOVERED_LIST_COLUMN_MODEL");
inline constexpr TextId DISCOVERED_LIST_COLUMN_PRINTER(L"DISCOVERED_LIST_COLUMN_PRINTER");
inline constexpr TextId DISCOVERED_LIST_COLUMN_PRINTERNAME(L"DISCOVERED_LIST_COLUMN_PRINTERNAME");
inline constexpr TextId DISCOVERED_LIST_COLUMN_SCANNER(L"DISCOVERED_LIST_COLUMN_SCANNER");
inline constexpr TextId DISCOVERED_LIST_COLUMN_SEARCHING(L"DISCOVERED_LIST_COLUMN_SEARCHING");
inline constexpr TextId DISCOVERED_LIST_DESCENDING(L"DISCOVERED_LIST_DESCENDING");
inline constexpr TextId DISCOVERED_PORTS(L"DISCOVERED_PORTS");
inline constexpr TextId DISCOVERY_TITLE(L"DISCOVERY_TITLE");
inline constexpr TextId DOWNLOAD_INSTALL_TITLE(L"DOWNLOAD_INSTALL_TITLE");
inline constexpr TextId DO_NOT_CLOSE_TEXT(L"DO_NOT_CLOSE_TEXT");
inline constexpr TextId DRIVER_INSTALL_COMPLETE_TEXT(L"DRIVER_INSTALL_COMPLETE_TEXT");
inline constexpr TextId DUP_PORT_TEXT(L"DUP_PORT_TEXT");
inline constexpr TextId EMPTY_DRIVERCONFIG_PATH(L"EMPTY_DRIVERCONFIG_PATH");
inline constexpr TextId ERROR_LINK(L"ERROR_LINK");
inline constexpr TextId ETHERNETRADIO_TEXT(L"ETHERNETRADIO_TEXT");
inline constexpr TextId ETHERNET_TEXT(L"ETHERNET_TEXT");
inline constexpr TextId FAILED_TEXT(L"FAILED_TEXT");
inline constexpr TextId FILES_IN_USE_HEADER(L"FILES_IN_USE_HEADER");
inline constexpr TextId FILE_IN_USE_TEXT(L"FILE_IN_USE_TEXT");
inline constexpr TextId FINISH_BUTTON(L"FINISH_BUTTON");
inline constexpr TextId GEN_ERROR_TITLE(L"GEN_ERROR_TITLE");
inline constexpr TextId HELP_BUTTON(L"HELP_BUTTON");
inline constexpr TextId INSTALLATION_FAILED_TEXT(L"INSTALLATION_FAILED_TEXT");
inline constexpr TextId INSTALL_BUTTON(L"INSTALL_BUTTON");
inline constexpr TextId INSTALL_CANCELED_TEXT(L"INSTALL_CANCELED_TEXT");
inline constexpr TextId INSTALL_COMPLETE_TEXT(L"INSTALL_COMPLETE_TEXT");
inline constexpr TextId INVALID_NET_PATH_TEXT(L"INVALID_NET_PATH_TEXT");
inline constexpr TextId INVALID_PATH_TEXT(L"INVALID_PATH_TEXT");
inline constexpr TextId IP_ADDRESS(L"IP_ADDRESS");
inline constexpr TextId IP_ADDRESS_TEXT(L"IP_ADDRESS_TEXT");
inline constexpr TextId IP_HOSTNAME_SEARCH(L"IP_HOSTNAME_SEARCH");
inline constexpr TextId IP_HOSTNAME_SEARCH_TOOLTIP(L"IP_HOSTNAME_SEARCH_TOOLTIP");
inline constexpr TextId IP_PORT(L"IP_PORT");
inline constexpr TextId LICENSE_AGREEMENT(L"LICENSE_AGREEMENT");
inline constexpr TextId LICENSE_SCROLL_TEXT(L"LICENSE_SCROLL_TEXT");
inline constexpr TextId LIST_DISPLAY_LINK(L"LIST_DISPLAY_LINK");
inline constexpr TextId LOAD_FILE(L"LOAD_FILE");
inline constexpr TextId LOCAL_SUBNET_SEARCH(L"LOCAL_SUBNET_SEARCH");
inline constexpr TextId LOCAL_SUBNET_SEARCH_TOOLTIP(L"LOCAL_SUBNET_SEARCH_TOOLTIP");
inline constexpr TextId MANUFACTURER_LABEL(L"MANUFACTURER_LABEL");
inline constexpr TextId MANUFACTURER_TEXT(L"MANUFACTURER_TEXT");
inline constexpr TextId MODIFY_SEARCH_TEXT(L"MODIFY_SEARCH_TEXT");
inline constexpr TextId MONO(L"MONO");
inline constexpr TextId MSG_HOSTNAME_LIMIT(L"MSG_HOSTNAME_LIMIT");
inline constexpr TextId MSG_INVALID_IP(L"MSG_INVALID_IP");
inline constexpr TextId MSG_INVALID_IPHOST_NAME(L"MSG_INVALID_IPHOST_NAME");
inline constexpr TextId MSG_INVALID_SUBNET(L"MSG_INVALID_SUBNET");
inline constexpr TextId MSG_IP_LIMIT(L"MSG_IP_LIMIT");
inline constexpr TextId MSG_SUBNET_LIMIT(L"MSG_SUBNET_LIMIT");
inline constexpr TextId NETWORK_PATH_TEXT(L"NETWORK_PATH_TEXT");
inline constexpr TextId NEW_FILE(L"NEW_FILE");
inline constexpr TextId NEXT_BUTTON(L"NEXT_BUTTON");
inline constexpr TextId NOT_SUPPORTED_TEXT(L"NOT_SUPPORTED_TEXT");
inline constexpr TextId NO_PRINTER_FOUND(L"NO_PRINTER_FOUND");
inline constexpr TextId OK_BUTTON(L"OK_BUTTON");
inline constexpr TextId PORT_NAME_TEXT(L"PORT_NAME_TEXT");
inline constexpr TextId PORT_TYPE_TEXT(L"PORT_TYPE_TEXT");
inline constexpr TextId PRINT_DRIVER_TEXT(L"PRINT_DRIVER_TEXT");
inline constexpr TextId PRODUCT_REGISTRATION_LINK_LABEL(L"PRODUCT_REGISTRATION_LINK_LABEL");
inline constexpr TextId REBOOT_HEADER_TEXT(L"REBOOT_HEADER_TEXT");
inline constexpr TextId REBOOT_LATER_TEXT(L"REBOOT_LATER_TEXT");
inline constexpr TextId REBOOT_NOW_TEXT(L"REBOOT_NOW_TEXT");
inline constexpr TextId REBOOT_TEXT(L"REBOOT_TEXT");
inline constexpr TextId REFRESH_TEXT(L"REFRESH_TEXT");
inline constexpr TextId REGISTRATION_LINK(L"REGISTRATION_LINK");
inline constexpr TextId REQUIRED_DEPENDENCY(L"REQUIRED_DEPENDENCY");
inline constexpr TextId RESET_TEXT(L"RESET_TEXT");
inline constexpr TextId RETRY_BUTTON(L"RETRY_BUTTON");
inline constexpr TextId RM_FILE_IN_USE_TEXT(L"RM_FILE_IN_USE_TEXT");
inline constexpr TextId SELECT_NOTE1_TEXT(L"SELECT_NOTE1_TEXT");
inline constexpr TextId SELECT_NOTE2_TEXT(L"SELECT_NOTE2_TEXT");
inline constexpr TextId SELECT_PORT_TITLE(L"SELECT_PORT_TITLE");
inline constexpr TextId SELECT_PRINTSCAN_TEXT(L"SELECT_PRINTSCAN_TEXT");
inline constexpr TextId SELECT_PRINT_TEXT(L"SELECT_PRINT_TEXT");
inline constexpr TextId SOFTWARE_LIST_DISPLAY_TITLE(L"SOFTWARE_LIST_DISPLAY_TITLE");
inline constexpr TextId SOFTWARE_LIST_DISPLAY_WINDOW_TITLE(L"SOFTWARE_LIST_DISPLAY_WINDOW_TITLE");
inline constexpr TextId SUBNET_MASK(L"SUBNET_MASK");
inline constexpr TextId SUBNET_SEARCH(L"SUBNET_SEARCH");
inline constexpr TextId SUBNET_SEARCH_TOOLTIP(L"SUBNET_SEARCH_TOOLTIP");
inline constexpr TextId SW_BYPASS_OPTIONAL(L"SW_BYPASS_OPTIONAL");
inline constexpr TextId SW_BYPASS_REINSTALL(L"SW_BYPASS_REINSTALL");
inline constexpr TextId SW_BYPASS_TEXT(L"SW_BYPASS_TEXT");
inline constexpr TextId SW_BYPASS_TITLE(L"SW_BYPASS_TITLE");
inline constexpr TextId UNC_PORT(L"UNC_PORT");
inline constexpr TextId UPDATED_TEXT(L"UPDATED_TEXT");
inline constexpr TextId USBRADIO_TEXT(L"USBRADIO_TEXT");
inline constexpr TextId USB_FINAL_TEXT(L"USB_FINAL_TEXT");
inline constexpr TextId USB_REBOOT_TEXT(L"USB_REBOOT_TEXT");
inline constexpr TextId USB_TEXT(L"USB_TEXT");
inline constexpr TextId WELCOME_HEADER(L"WELCOME_HEADER");
inline constexpr TextId WELCOME_TEXT(L"WELCOME_TEXT");

}  // namespace TextKey
