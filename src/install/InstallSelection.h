// What a run installs, in its order.
#pragma once

#include <vector>

#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "settings/InstallSettings.h"

// The selected applications of the run: the core ones, or the optional ones in the run that follows, or both
// in a package of the second variant.
std::vector<MSI_APP> SelectApps(const InstallSettings& settings, const AppCatalogue& applications);

// The selected drivers; none in an optional run.
std::vector<MSI_APP> SelectDrivers(const InstallSettings& settings, const DriverInfo& drivers);
