// The packages of a rollout and how the system stands to them.
#pragma once

#include <string>
#include <vector>

#include "tools/Intention.h"

namespace rollout {

// As the package's library tells it.
struct PackageState {
    bool installed = false;
    bool upToDate = false;
    bool upgradable = false;
    bool minorUpgrade = false;

    bool IsAsWanted() const { return installed && upToDate; }
    // Installed, and neither as the package has it nor older.
    bool IsNewer() const { return installed && !upToDate && !upgradable; }

    friend bool operator==(const PackageState&, const PackageState&) = default;
};

struct PackageEntry {
    std::wstring path;
    std::wstring product;
    std::wstring version;
    Intention intention = Intention::Install;
    // The path of the package that takes this one along; empty for one that runs by itself.
    std::wstring parent;
    PackageState before;
};

// The texts of the boxes that the wizard can show in a silent run.
struct BoxTexts {
    std::wstring failure;
    std::wstring installerBusy;
    std::wstring noPermission;
    std::wstring diskFull;
    std::wstring otherCopy;
};

// What the package in whose folder this program lies is, and what a silent run would do with it.
struct PackageDescription {
    // The reason why nothing can be said of it; empty if there is none.
    std::wstring failure;
    std::wstring vendor;
    // Ends in a backslash.
    std::wstring logFolder;
    // Whether the settings, with the switches of the command line, let the wizard run without pages.
    bool canRunSilently = false;
    BoxTexts boxTexts;
    // In the order in which they would run, dependents after the package that takes them along.
    std::vector<PackageEntry> packages;
    std::vector<std::wstring> plan;
};

}  // namespace rollout
