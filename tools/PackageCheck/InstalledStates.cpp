#include "tools/PackageCheck/InstalledStates.h"

#include <array>
#include <utility>

#include "tools/PackageCheck/PackageTree.h"

#include <nlohmann/json.hpp>

namespace packagecheck {

namespace {

constexpr std::array<std::pair<std::string_view, InstalledState>, 5> stateWords = {{
    {"notInstalled", InstalledState::NotInstalled},
    {"upToDate", InstalledState::UpToDate},
    {"upgradable", InstalledState::Upgradable},
    {"minorUpgrade", InstalledState::MinorUpgrade},
    {"newer", InstalledState::Newer},
}};

std::optional<InstalledState> StateNamed(std::string_view word) {
    for (const auto& [name, state] : stateWords) {
        if (name == word) return state;
    }
    return std::nullopt;
}

}  // namespace

InstalledState InstalledStates::StateOf(std::string_view path, std::string_view productName) const {
    for (const std::string_view name : {path, FileNameOf(path), productName}) {
        const auto found = states.find(Folded(name));
        if (found != states.end()) return found->second;
    }
    return InstalledState::NotInstalled;
}

void InstalledStates::Set(std::string_view name, InstalledState state) {
    states[Folded(name)] = state;
}

std::optional<InstalledStates> ReadInstalledStates(std::string_view json, std::string& mistake) {
    const auto document = nlohmann::json::parse(json, nullptr, false);
    if (!document.is_object()) {
        mistake = "it is no JSON object of names and states";
        return std::nullopt;
    }
    InstalledStates states;
    for (const auto& [name, value] : document.items()) {
        const auto state = value.is_string() ? StateNamed(value.get<std::string>()) : std::nullopt;
        if (!state) {
            mistake = "the state of \"" + name +
                      "\" is none of notInstalled, upToDate, upgradable, minorUpgrade and newer";
            return std::nullopt;
        }
        states.Set(name, *state);
    }
    return states;
}

}  // namespace packagecheck
