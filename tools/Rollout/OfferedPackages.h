// The packages that a run would take on, read as the wizard reads them.
#pragma once

#include <optional>
#include <vector>

#include "app/Collaborators.h"
#include "catalogue/MSI_APP.h"

struct OfferedPackages {
    // In the order in which they would run; applications run before drivers.
    std::vector<MSI_APP> applications;
    std::vector<MSI_APP> drivers;
};

// Reads the settings and builds the catalogues. Returns nothing if there is no defaultInstallSettings.xml one
// folder above this program. Once per process.
std::optional<OfferedPackages> ReadOfferedPackages(const Collaborators& shared);
