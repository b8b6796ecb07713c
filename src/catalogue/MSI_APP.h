// The record of a package.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/PackageStatus.h"

// The record of one package, for applications and drivers alike. A plain value: a copy owns its texts and its
// dependents, and a record belongs to one thread at a time.
struct MSI_APP {
    bool upToDate = false;
    bool upgradable = false;
    bool minorUpgrade = false;
    bool newerInstalled = false;
    bool installed = false;    // as it was when the catalogue was built
    bool isInstalled = false;  // by this run
    bool isOptional = false;
    bool isSelected = false;
    bool ombrelSupported = false;
    bool isSupportedDriver = false;
    bool isPrinterDriver = false;
    bool isScanDriver = false;
    bool isFaxDriver = false;
    bool hasDependents = false;
    bool onlyDependentsSelected = false;
    bool usesDiscovery = false;
    bool forceReinstall = false;
    double installSizeMb = 0;
    std::wstring msiPath;
    std::wstring productName;
    std::wstring description;
    std::wstring productVersion;
    std::wstring deviceType;
    std::wstring appType;
    std::wstring reservedText;
    std::wstring driverName;
    std::wstring driverId;
    std::wstring streamDisplayName;
    std::wstring startApp;
    std::wstring secureCustomProperties;
    PackageStatus status = PackageStatus::NotRun;
    std::wstring supportedOs;
    std::vector<MSI_APP> dependents;
    std::wstring dependentNames;

    // Returns true if the record passes the filter, a tag document that may name ISOPTIONAL, ISINSTALLED,
    // ISSELECTED and DEVICETYPE; any other name lets no record pass.
    bool Matches(std::wstring_view filter) const;
};
