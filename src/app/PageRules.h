// The order of the pages, and when each is hidden.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "catalogue/DriverInfo.h"
#include "settings/InstallSettings.h"
#include "settings/TagNames.h"
#include "wizard/PageRole.h"

// When a page is hidden: by a flag of the settings, or always where there is no flag.
struct Condition {
    std::optional<FlagTag> flag;
    bool hidingValue = true;

    bool Holds(const InstallSettings& settings) const {
        return !flag || settings.GetBool(*flag) == hidingValue;
    }
};

struct PageRule {
    // What people call the page.
    std::wstring_view title;
    PageRole role;
    Condition hiddenAtFirst;
    // Asked again whenever tags have changed; nothing where the page stays as it was at first.
    std::optional<Condition> hiddenLater;
};

namespace PageRules {

constexpr Condition When(FlagTag flag) {
    return {.flag = flag, .hidingValue = true};
}

constexpr Condition Unless(FlagTag flag) {
    return {.flag = flag, .hidingValue = false};
}

inline constexpr Condition always{};
inline constexpr std::nullopt_t asAtFirst = std::nullopt;

inline constexpr PageRule start{L"Welcome", PageRole::Ordinary, When(Tag::HIDE_START), asAtFirst};
inline constexpr PageRule licence{L"Licence", PageRole::Ordinary, When(Tag::HIDE_EULA), asAtFirst};
inline constexpr PageRule manufacturer{L"Manufacturer", PageRole::Ordinary, always,
                                       Unless(Tag::SHOW_MANUFACTURERS)};
inline constexpr PageRule optionalSoftware{L"Optional software", PageRole::Ordinary, always,
                                           Unless(Tag::TAG_DIALOG_SHOW_BYPASS)};
inline constexpr PageRule connectivity{L"Connectivity", PageRole::Ordinary, When(Tag::HIDE_CONNECTIVITY),
                                       When(Tag::HIDE_CONNECTIVITY)};
inline constexpr PageRule discovery{L"Discovered printers", PageRole::Discovery, always,
                                    When(Tag::HIDE_DISCOVERY)};
inline constexpr PageRule addPort{L"Add port", PageRole::Ordinary, always, Unless(Tag::DIALOG_ADD_PORT)};
inline constexpr PageRule progress{L"Progress", PageRole::Progress, When(Tag::HIDE_PROGRESS), asAtFirst};
inline constexpr PageRule coreFinish{L"Finish", PageRole::CoreFinish, When(Tag::HIDE_FINAL), asAtFirst};
inline constexpr PageRule coreRestart{L"Restart", PageRole::CoreReboot, always, Unless(Tag::REBOOT)};
inline constexpr PageRule finish{L"Finish of the optional software", PageRole::Finish, When(Tag::HIDE_FINAL),
                                 asAtFirst};
inline constexpr PageRule restart{L"Restart after the optional software", PageRole::Reboot, always,
                                  Unless(Tag::REBOOT)};

// In the order in which a user meets them.
inline constexpr std::array inOrder{&start,        &licence,     &manufacturer, &optionalSoftware,
                                    &connectivity, &discovery,   &addPort,      &progress,
                                    &coreFinish,   &coreRestart, &finish,       &restart};

}  // namespace PageRules

// Sets what the pages' rules ask for and no package says: whether the wizard has a page for the connection,
// and whether the package brings anything but applications. Reads AMAZON_SUPPORTED and INSTALL_FROM_CONFIG;
// writes APPS_ONLY_PACKAGE, HIDE_CONNECTIVITY and HIDE_SECURITY.
void SettleChainTags(InstallSettings& settings, const DriverInfo& drivers);
