#include "discovery/DriverMatch.h"

#include "settings/TextKeys.h"

std::optional<std::wstring> OverridingDriver(std::wstring_view table, std::wstring_view deviceText) {
    const std::size_t found = table.find(deviceText);
    if (found == std::wstring_view::npos) return std::nullopt;
    const std::size_t colon = table.find(L':', found);
    if (colon == std::wstring_view::npos) return std::nullopt;
    const std::wstring_view rest = table.substr(colon + 1);
    return std::wstring(rest.substr(0, rest.find(L';')));
}

TextId SelectionTextKey(bool isMultiFunction, bool hasFax) {
    if (!isMultiFunction) return TextKey::SELECT_PRINT_TEXT;
    return hasFax ? TextKey::DOWNLOAD_INSTALL_TITLE : TextKey::SELECT_PRINTSCAN_TEXT;
}
