// How a package stands to what is installed.
#pragma once

#include <string>
#include <vector>

#include "standins/Brevanto/ProductVersion.h"
#include "standins/Brevanto/PropertyDocument.h"

namespace brevanto {

// What says which product a package is.
struct PackageIdentity {
    std::wstring productCode;
    std::wstring upgradeCode;
    ProductVersion version;
};

// A product on the system that has the product code or the upgrade code of a package.
struct InstalledProduct {
    std::wstring productCode;
    ProductVersion version;
};

// How a package stands to what is installed. An installed product is up to date, upgradable or, with neither
// flag, newer than the package.
struct InstalledState {
    bool installed = false;
    bool upToDate = false;
    bool upgradable = false;
    bool minorUpgrade = false;
    std::wstring productCode;

    friend bool operator==(const InstalledState&, const InstalledState&) = default;
};

// Reads the identity out of a package's properties.
PackageIdentity IdentifyPackage(const std::vector<Property>& properties);

// Judges a package against the installed products that it is related to. The product of its own code counts
// before any other; among others the newest counts.
InstalledState Judge(const PackageIdentity& package, const std::vector<InstalledProduct>& products);

// Asks Windows Installer for the products that a package is related to, and judges it against them.
InstalledState FindInstalledState(const PackageIdentity& package);

}  // namespace brevanto
