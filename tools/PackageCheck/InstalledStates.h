// What a plan is told to find installed.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace packagecheck {

// How a product on the system stands to the package that brings it.
enum class InstalledState { NotInstalled, UpToDate, Upgradable, MinorUpgrade, Newer };

// By the package's path in the tree, by the name of its file or by that of its product, in any case of ASCII
// letters.
class InstalledStates {
public:
    // Of the three the path counts first and the product last. A package of which nothing is said is not
    // installed.
    InstalledState StateOf(std::string_view path, std::string_view productName) const;
    void Set(std::string_view name, InstalledState state);

private:
    std::map<std::string, InstalledState, std::less<>> states;
};

// Reads a JSON object such as {"Monitor.msi": "upToDate"}. Returns nothing, and why, for any other text.
std::optional<InstalledStates> ReadInstalledStates(std::string_view json, std::string& mistake);

}  // namespace packagecheck
