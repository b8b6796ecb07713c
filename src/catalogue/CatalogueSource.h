// What the catalogues are built from.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "catalogue/IMsiInterface.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"

// The system that the packages are to be installed on.
struct TargetSystem {
    // Its name, as packages write it in SUPPORTEDOS.
    std::wstring name;
    bool isWindows8OrLater = true;
};

struct CatalogueSource {
    IMsiInterface& msi;
    const InstallSettings& settings;
    const Localizer& localizer;
    TargetSystem system;
    // Returns the paths of the packages in a folder of the tree (from its root, as in "Drivers\\x64\\"), in
    // the order of the file system; with file names only those whose own occurs in that text.
    std::function<std::vector<std::wstring>(const std::wstring& folder, const std::wstring& fileNames)>
        listPackages;
};
