#include "tools/PackageCheck/KnownTexts.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "settings/TextKeys.h"

namespace packagecheck {

namespace {

constexpr auto textKeys = std::to_array<std::wstring_view>({
    TextKey::READING_ORDER.Name(),
    TextKey::LANGUAGE_ID.Name(),
    TextKey::LBL_LOCALIZED_AND.Name(),
    TextKey::INSTALL_TITLE.Name(),
    TextKey::PERMISSION_ERROR_TITLE.Name(),
    TextKey::PERMISSION_ERROR_TEXT.Name(),
    TextKey::DISK_FULL_ERROR_TITLE.Name(),
    TextKey::DISK_FULL_ERROR_TEXT.Name(),
    TextKey::INSTALL_ALREADY_RUNNING_TITLE.Name(),
    TextKey::INSTALL_ALREADY_RUNNING_TEXT.Name(),
    TextKey::ERROR_TITLE.Name(),
    TextKey::ERROR_TEXT.Name(),
    TextKey::MULTIINSTANCE_ERROR_TITLE.Name(),
    TextKey::MULTIINSTANCE_ERROR_TEXT.Name(),
    TextKey::CANCEL_CONFIRMATION_TEXT.Name(),
    TextKey::OPTIONAL_SOFTWARE_CANCEL_CONFIRMATION_TEXT.Name(),
    TextKey::INFOCENTER_LINK_LABEL.Name(),
    TextKey::DISCOVERY_INFOCENTER_LINK_LABEL.Name(),
    TextKey::DOTNET.Name(),
    TextKey::PREPARE_INSTALL_TEXT.Name(),
    TextKey::INSTALLING_TEXT.Name(),
    TextKey::UNINSTALLING_TEXT.Name(),
    TextKey::CANCELING_TEXT.Name(),
    TextKey::CANCEL_BUTTON.Name(),
    TextKey::ADD_NETWORK_PRINTER.Name(),
    TextKey::ADVANCED_TEXT.Name(),
    TextKey::AGREE_BUTTON.Name(),
    TextKey::AMAZON_INSTALL_COMPLETE_HEADER.Name(),
    TextKey::AMAZON_INSTALL_COMPLETE_TEXT1.Name(),
    TextKey::AMAZON_INSTALL_USB_PATH_COMPLETE_TEXT1.Name(),
    TextKey::AMAZON_WELCOME_HEADER.Name(),
    TextKey::AMAZON_WELCOME_TEXT.Name(),
    TextKey::AUTO_RESTART_TEXT.Name(),
    TextKey::BASIC_TEXT.Name(),
    TextKey::CANCELED_TEXT.Name(),
    TextKey::CODE_PAGE.Name(),
    TextKey::COLOR.Name(),
    TextKey::COMPLETED_TEXT.Name(),
    TextKey::CONFIG_APPLY_FUTURE_TEXT.Name(),
    TextKey::CONFIG_SETTINGS_BUTTON.Name(),
    TextKey::CONFIG_SETTINGS_TEXT.Name(),
    TextKey::CONNECTIVITY_TEXT.Name(),
    TextKey::CONNECTIVITY_TITLE.Name(),
    TextKey::CONNECT_WITH_NIMBOJET_TEXT.Name(),
    TextKey::CONNECT_WITH_USB_TEXT.Name(),
    TextKey::DISAGREE_BUTTON.Name(),
    TextKey::DISCOVERED_DEVICES_LIST.Name(),
    TextKey::DISCOVERED_LIST_ASCENDING.Name(),
    TextKey::DISCOVERED_LIST_COLUMN_IPADDRESS.Name(),
    TextKey::DISCOVERED_LIST_COLUMN_MACADDRESS.Name(),
    TextKey::DISCOVERED_LIST_COLUMN_MODEL.Name(),
    TextKey::DISCOVERED_LIST_COLUMN_PRINTER.Name(),
    TextKey::DISCOVERED_LIST_COLUMN_PRINTERNAME.Name(),
    TextKey::DISCOVERED_LIST_COLUMN_SCANNER.Name(),
    TextKey::DISCOVERED_LIST_COLUMN_SEARCHING.Name(),
    TextKey::DISCOVERED_LIST_DESCENDING.Name(),
    TextKey::DISCOVERED_PORTS.Name(),
    TextKey::DISCOVERY_TITLE.Name(),
    TextKey::DOWNLOAD_INSTALL_TITLE.Name(),
    TextKey::DO_NOT_CLOSE_TEXT.Name(),
    TextKey::DRIVER_INSTALL_COMPLETE_TEXT.Name(),
    TextKey::DUP_PORT_TEXT.Name(),
    TextKey::EMPTY_DRIVERCONFIG_PATH.Name(),
    TextKey::ERROR_LINK.Name(),
    TextKey::ETHERNETRADIO_TEXT.Name(),
    TextKey::ETHERNET_TEXT.Name(),
    TextKey::FAILED_TEXT.Name(),
    TextKey::FILES_IN_USE_HEADER.Name(),
    TextKey::FILE_IN_USE_TEXT.Name(),
    TextKey::FINISH_BUTTON.Name(),
    TextKey::GEN_ERROR_TITLE.Name(),
    TextKey::HELP_BUTTON.Name(),
    TextKey::INSTALLATION_FAILED_TEXT.Name(),
    TextKey::INSTALL_BUTTON.Name(),
    TextKey::INSTALL_CANCELED_TEXT.Name(),
    TextKey::INSTALL_COMPLETE_TEXT.Name(),
    TextKey::INVALID_NET_PATH_TEXT.Name(),
    TextKey::INVALID_PATH_TEXT.Name(),
    TextKey::IP_ADDRESS.Name(),
    TextKey::IP_ADDRESS_TEXT.Name(),
    TextKey::IP_HOSTNAME_SEARCH.Name(),
    TextKey::IP_HOSTNAME_SEARCH_TOOLTIP.Name(),
    TextKey::IP_PORT.Name(),
    TextKey::LICENSE_AGREEMENT.Name(),
    TextKey::LICENSE_SCROLL_TEXT.Name(),
    TextKey::LIST_DISPLAY_LINK.Name(),
    TextKey::LOAD_FILE.Name(),
    TextKey::LOCAL_SUBNET_SEARCH.Name(),
    TextKey::LOCAL_SUBNET_SEARCH_TOOLTIP.Name(),
    TextKey::MANUFACTURER_LABEL.Name(),
    TextKey::MANUFACTURER_TEXT.Name(),
    TextKey::MODIFY_SEARCH_TEXT.Name(),
    TextKey::MONO.Name(),
    TextKey::MSG_HOSTNAME_LIMIT.Name(),
    TextKey::MSG_INVALID_IP.Name(),
    TextKey::MSG_INVALID_IPHOST_NAME.Name(),
    TextKey::MSG_INVALID_SUBNET.Name(),
    TextKey::MSG_IP_LIMIT.Name(),
    TextKey::MSG_SUBNET_LIMIT.Name(),
    TextKey::NETWORK_PATH_TEXT.Name(),
    TextKey::NEW_FILE.Name(),
    TextKey::NEXT_BUTTON.Name(),
    TextKey::NOT_SUPPORTED_TEXT.Name(),
    TextKey::NO_PRINTER_FOUND.Name(),
    TextKey::OK_BUTTON.Name(),
    TextKey::PORT_NAME_TEXT.Name(),
    TextKey::PORT_TYPE_TEXT.Name(),
    TextKey::PRINT_DRIVER_TEXT.Name(),
    TextKey::PRODUCT_REGISTRATION_LINK_LABEL.Name(),
    TextKey::REBOOT_HEADER_TEXT.Name(),
    TextKey::REBOOT_LATER_TEXT.Name(),
    TextKey::REBOOT_NOW_TEXT.Name(),
    TextKey::REBOOT_TEXT.Name(),
    TextKey::REFRESH_TEXT.Name(),
    TextKey::REGISTRATION_LINK.Name(),
    TextKey::REQUIRED_DEPENDENCY.Name(),
    TextKey::RESET_TEXT.Name(),
    TextKey::RETRY_BUTTON.Name(),
    TextKey::RM_FILE_IN_USE_TEXT.Name(),
    TextKey::SELECT_NOTE1_TEXT.Name(),
    TextKey::SELECT_NOTE2_TEXT.Name(),
    TextKey::SELECT_PORT_TITLE.Name(),
    TextKey::SELECT_PRINTSCAN_TEXT.Name(),
    TextKey::SELECT_PRINT_TEXT.Name(),
    TextKey::SOFTWARE_LIST_DISPLAY_TITLE.Name(),
    TextKey::SOFTWARE_LIST_DISPLAY_WINDOW_TITLE.Name(),
    TextKey::SUBNET_MASK.Name(),
    TextKey::SUBNET_SEARCH.Name(),
    TextKey::SUBNET_SEARCH_TOOLTIP.Name(),
    TextKey::SW_BYPASS_OPTIONAL.Name(),
    TextKey::SW_BYPASS_REINSTALL.Name(),
    TextKey::SW_BYPASS_TEXT.Name(),
    TextKey::SW_BYPASS_TITLE.Name(),
    TextKey::UNC_PORT.Name(),
    TextKey::UPDATED_TEXT.Name(),
    TextKey::USBRADIO_TEXT.Name(),
    TextKey::USB_FINAL_TEXT.Name(),
    TextKey::USB_REBOOT_TEXT.Name(),
    TextKey::USB_TEXT.Name(),
    TextKey::WELCOME_HEADER.Name(),
    TextKey::WELCOME_TEXT.Name(),
});

std::vector<PageTexts> MakeTextsByPage() {
    using namespace TextKey;
    const auto onPage = [](std::string_view name, std::initializer_list<TextId> texts) {
        PageTexts made{.page = name};
        for (const TextId text : texts) made.keys.push_back(text.Name());
        return made;
    };
    return {
        onPage("Start",
               {INSTALL_BUTTON, CANCEL_BUTTON, INFOCENTER_LINK_LABEL, PRODUCT_REGISTRATION_LINK_LABEL}),
        onPage("Licence", {AGREE_BUTTON, DISAGREE_BUTTON}),
        onPage("Manufacturer", {NEXT_BUTTON, CANCEL_BUTTON, HELP_BUTTON, MANUFACTURER_LABEL}),
        onPage("Optional software",
               {NEXT_BUTTON, CANCEL_BUTTON, HELP_BUTTON, SW_BYPASS_REINSTALL, SW_BYPASS_OPTIONAL}),
        onPage("Connection", {NEXT_BUTTON, CANCEL_BUTTON, HELP_BUTTON, ETHERNETRADIO_TEXT, USBRADIO_TEXT}),
        onPage("Printers", {DISCOVERED_DEVICES_LIST, MODIFY_SEARCH_TEXT, REFRESH_TEXT, ADVANCED_TEXT,
                            CONNECT_WITH_USB_TEXT, CONNECT_WITH_NIMBOJET_TEXT, PRINT_DRIVER_TEXT,
                            CONFIG_SETTINGS_BUTTON, HELP_BUTTON, NEXT_BUTTON, CANCEL_BUTTON}),
        onPage("Search", {LOCAL_SUBNET_SEARCH, IP_HOSTNAME_SEARCH, SUBNET_SEARCH, IP_ADDRESS, SUBNET_MASK,
                          OK_BUTTON, CANCEL_BUTTON, HELP_BUTTON}),
        onPage("Port", {PORT_NAME_TEXT, IP_ADDRESS_TEXT, PRINT_DRIVER_TEXT, CONFIG_SETTINGS_BUTTON,
                        BASIC_TEXT, NEXT_BUTTON, CANCEL_BUTTON, HELP_BUTTON}),
        onPage("Port of a shared printer", {NETWORK_PATH_TEXT, PRINT_DRIVER_TEXT, CONFIG_SETTINGS_BUTTON,
                                            BASIC_TEXT, NEXT_BUTTON, CANCEL_BUTTON, HELP_BUTTON}),
        onPage("Driver configuration", {NEW_FILE, LOAD_FILE, RESET_TEXT, CONFIG_APPLY_FUTURE_TEXT,
                                        HELP_BUTTON, OK_BUTTON, CANCEL_BUTTON}),
        onPage("Files in use", {RETRY_BUTTON, CANCEL_BUTTON}),
        onPage("Programs to close", {AUTO_RESTART_TEXT, DO_NOT_CLOSE_TEXT, OK_BUTTON}),
        onPage("Restart", {REBOOT_NOW_TEXT, REBOOT_LATER_TEXT, FINISH_BUTTON, HELP_BUTTON}),
    };
}

}  // namespace

const std::vector<PageTexts>& TextsByPage() {
    static const std::vector<PageTexts> pages = MakeTextsByPage();
    return pages;
}

std::span<const std::wstring_view> TextKeys() {
    return textKeys;
}

bool IsTextKey(std::wstring_view key) {
    return std::ranges::find(textKeys, key) != textKeys.end();
}

bool CanBeMissing(std::wstring_view key, bool isVariant) {
    using namespace TextKey;
    const auto isOneOf = [&](std::initializer_list<TextId> texts) {
        return std::ranges::any_of(texts, [&](TextId text) { return text.Name() == key; });
    };
    // The wizard has columns for these and does not show them.
    if (isOneOf({DISCOVERED_LIST_COLUMN_PRINTERNAME, DISCOVERED_LIST_COLUMN_MACADDRESS,
                 DISCOVERED_LIST_COLUMN_SCANNER})) {
        return true;
    }
    return !isVariant && isOneOf({AMAZON_WELCOME_HEADER, AMAZON_WELCOME_TEXT, AMAZON_INSTALL_COMPLETE_HEADER,
                                  CONNECTIVITY_TITLE, CONNECTIVITY_TEXT, ETHERNETRADIO_TEXT, ETHERNET_TEXT,
                                  USBRADIO_TEXT, USB_TEXT});
}

}  // namespace packagecheck
