#include "tools/PackageCheck/KnownTags.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "CommonLib/TextUtilities.h"
#include "CommonLib/Utf8.h"
#include "settings/TagNames.h"

namespace packagecheck {

namespace {

constexpr KnownTag Strict(StrictFlagTag tag) {
    return {.name = tag, .use = TagUse::Strict, .yes = tag.Yes()};
}

constexpr auto settingsTags = std::to_array<KnownTag>({
    {Tag::SILENT_INSTALL, TagUse::Flag},
    {Tag::HIDE_START, TagUse::Flag},
    {Tag::HIDE_EULA, TagUse::Flag},
    {Tag::HIDE_CONNECTIVITY, TagUse::Flag},
    {Tag::HIDE_DISCOVERY, TagUse::Flag},
    {Tag::HIDE_PROGRESS, TagUse::Flag},
    {Tag::HIDE_FINAL, TagUse::Flag},
    {Tag::SHOW_MANUFACTURERS, TagUse::Flag},
    {Tag::INSTALL_PICKED_DRIVER_ONLY, TagUse::Flag},
    {Tag::CONFIG_APPLY_FUTURE, TagUse::Flag},
    {Tag::ADD_PORT, TagUse::Flag},
    {Tag::SET_DEFAULT, TagUse::Flag},
    Strict(Tag::PO_NAME_FROM_DISCOVERY),
    Strict(Tag::AMAZON_SUPPORTED),
    Strict(Tag::USB_SUPPORTED),
    Strict(Tag::SHOW_REGISTRATION),
    {Tag::MODEL_NAME, TagUse::List},
    {Tag::MODEL_NAME_FAX, TagUse::List},
    {Tag::MODEL_PRODUCT_CODE, TagUse::List},
    {Tag::DEVICE, TagUse::List},
    {Tag::OEM},
    {Tag::OEM_NAME},
    {Tag::OEMBYTE},
    {Tag::PRINTER_NAME},
    {Tag::DEFAULT_PRINTER_NAME},
    {Tag::PRODUCT_NAME},
    {Tag::UPD},
    {Tag::WEBDRIVERVER},
    {Tag::WIN8_DRVTYPES},
    {Tag::WINXP_DRVTYPES},
    {Tag::NO_COMM_DEFAULT},
    {Tag::MONO_DEFAULT},
    {Tag::COLOR_DEFAULT},
    {L"WIN8_NO_COMM_DEFAULT"},
    {L"WIN8_MONO_DEFAULT"},
    {L"WIN8_COLOR_DEFAULT"},
    {Tag::MODEL_DEFAULT_OVERRIDE},
    {Tag::SUBNETADDRESS},
    {Tag::IPADDRESS},
    {Tag::HOST_NAME},
    {Tag::PORT_NAME},
    {Tag::PORT_TYPE},
    {Tag::NETWORK_PATH},
    {Tag::DRIVERCONFIG_PATH},
    {Tag::CONFIG_EXE_PATH},
    {Tag::OMBREL_DESC},
    {Tag::DISCOVER_PARAMS},
    {Tag::DRIVER_MODEL_NAME},
    {Tag::STARTAPP},
    {Tag::INFOCENTER_LINK},
    {Tag::PRODUCT_REGISTRATION_LINK},
    {Tag::REGISTRATION_LINK},
    {Tag::MANUFACTURERS},
    {Tag::DEFAULT_MANUFACTURER},
    {Tag::INSTALL_FROM_CONFIG, TagUse::Run},
    {Tag::HIDE_SECURITY, TagUse::Run},
    {Tag::TAG_DIALOG_SHOW_BYPASS, TagUse::Run},
    {Tag::DIALOG_ADD_PORT, TagUse::Run},
    {Tag::OPTIONAL_INSTALL, TagUse::Run},
    {Tag::APPS_ONLY_PACKAGE, TagUse::Run},
    {Tag::REBOOT, TagUse::Run},
    {Tag::DOTNET_INSTALLED, TagUse::Run},
    {Tag::DOTNET_FAILED, TagUse::Run},
    {Tag::USB, TagUse::Run},
    {Tag::NIMBOJET, TagUse::Run},
    {Tag::DISCOVERED_DEVICE, TagUse::Run},
    {Tag::DISCOVERY_DONE, TagUse::Run},
    {Tag::PRINT_DEVICE, TagUse::Run},
    {Tag::SELECTED_DRIVER, TagUse::Run},
    {Tag::TARGET_DIR, TagUse::Run},
    {Tag::INSTALL_STATUS, TagUse::Run},
    {Tag::APP_INSTALLATION_STATUS, TagUse::Run},
    {Tag::INFOCENTER_SHORTCUT, TagUse::Run},
    {Tag::EXACT_INFOCENTER_LINK, TagUse::Run},
});

constexpr auto deviceTags = std::to_array<std::wstring_view>({
    Tag::DRIVER_ID,
    Tag::DETECT_PRINTER,
    Tag::PRINTER_NAME,
    Tag::PORT_NAME,
    Tag::PORT_TYPE,
    Tag::HOST_NAME,
    Tag::IPADDRESS,
    Tag::ADD_PORT,
    Tag::SET_DEFAULT,
    Tag::NETWORK_PATH,
    Tag::DRIVERCONFIG_PATH,
    Tag::CONFIG_EXE_PATH,
    Tag::CONFIG_APPLY_FUTURE,
    Tag::OMBREL_DESC,
    Tag::PRINTER_SERIES_NAME,
    Tag::PRINTER_MODEL_NAME,
    Tag::DRIVER_PRODUCT_NAME,
    Tag::DEFAULT_PRINTER_NAME,
    Tag::OEM_NAME,
    L"LOCATION",
    L"COMMENT",
    L"PROTOCOL",
    L"PORT_NUMBER",
    L"LPR_QUEUE",
});

// Longer names are not compared: nobody mistypes one of them into those.
constexpr std::size_t longestName = 64;

// How many characters must be put in, left out, replaced or exchanged with their neighbours to come from one
// text to the other, in any case of letters.
std::size_t DistanceBetween(std::wstring_view left, std::wstring_view right) {
    // The steps to each start of the right text, for the last three starts of the left one.
    using Row = std::array<std::size_t, longestName + 1>;
    Row beforeLast{};
    Row last{};
    Row steps{};
    for (std::size_t j = 0; j <= right.size(); ++j) steps[j] = j;
    const auto same = [&](std::size_t i, std::size_t j) {
        return EqualsIgnoringCase(left.substr(i - 1, 1), right.substr(j - 1, 1));
    };
    for (std::size_t i = 1; i <= left.size(); ++i) {
        beforeLast = last;
        last = steps;
        steps[0] = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            steps[j] = std::min({last[j] + 1, steps[j - 1] + 1, last[j - 1] + (same(i, j) ? 0 : 1)});
            const bool isExchanged = i > 1 && j > 1 && same(i, j - 1) && same(i - 1, j);
            if (isExchanged) steps[j] = std::min(steps[j], beforeLast[j - 2] + 1);
        }
    }
    return steps[right.size()];
}

}  // namespace

std::span<const KnownTag> SettingsTags() {
    return settingsTags;
}

const KnownTag* FindSettingsTag(std::wstring_view name) {
    const auto found = std::ranges::find(settingsTags, name, &KnownTag::name);
    return found == settingsTags.end() ? nullptr : &*found;
}

bool IsDeviceTag(std::wstring_view name) {
    return std::ranges::find(deviceTags, name) != deviceTags.end();
}

std::span<const std::wstring_view> DeviceTags() {
    return deviceTags;
}

std::vector<std::wstring_view> SettingsTagNames() {
    std::vector<std::wstring_view> names;
    names.reserve(settingsTags.size());
    for (const KnownTag& tag : settingsTags) names.push_back(tag.name);
    return names;
}

std::wstring NearestName(std::wstring_view text, std::span<const std::wstring_view> names) {
    return NearestName(text, names, text.size() / 3);
}

std::wstring NearestName(std::wstring_view text, std::span<const std::wstring_view> names,
                         std::size_t mostSlips) {
    std::wstring nearest;
    std::size_t least = mostSlips + 1;
    for (const std::wstring_view name : names) {
        const std::size_t longer = std::max(name.size(), text.size());
        if (name.size() > longestName || longer - std::min(name.size(), text.size()) >= least) continue;
        const std::size_t distance = DistanceBetween(text, name);
        if (distance >= least) continue;
        least = distance;
        nearest = name;
    }
    return nearest;
}

std::string NearestHint(std::wstring_view text, std::span<const std::wstring_view> names) {
    const std::wstring nearest = NearestName(text, names);
    return nearest.empty() ? std::string() : " Perhaps " + ToUtf8(nearest) + " is meant.";
}

}  // namespace packagecheck
