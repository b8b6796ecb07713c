// What manifests say of a package.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/PackageCheck/Package.h"

namespace packagecheck {

// A product that a silent run installs on every computer. All texts are plain lines.
struct ManifestProduct {
    std::string name;
    std::string version;
    std::string productCode;  // in braces
    std::string upgradeCode;  // in braces, or empty
};

struct ManifestLocale {
    std::string tag;          // of BCP 47
    std::string description;  // empty where the language file says nothing
};

struct ManifestData {
    std::string vendor;
    std::string name;        // of the whole
    std::string identifier;  // "Vendor.Name"
    std::string version;     // numbers and points: the highest of the products
    std::string link;        // where help is, or empty
    std::vector<ManifestProduct> products;
    std::vector<ManifestLocale> locales;  // English first, which is always there
    std::vector<std::string> notes;       // sentences on what is missing, or had to be left out
};

// Takes the applications, and the drivers that Windows 8 and later accept.
ManifestData CollectManifestData(const Package& package);

// Returns true for a name in braces as Windows Installer takes it for a code.
bool IsInstallerCode(std::string_view text);

}  // namespace packagecheck
