// Brings the configuration files and tools of a predefined configuration's devices into place.
#pragma once

#include "catalogue/AppCatalogue.h"
#include "settings/InstallSettings.h"

// Copies the configuration files of the devices to free names in the machine-wide folder. A file that has no
// extension and whose name is taken is not copied; that is logged, and the device gets the one that is there.
void ResolveDriverConfigPaths(InstallSettings& settings);

// Unpacks the configuration tools that the devices name and waits until they are there.
void ResolveConfigExePaths(InstallSettings& settings, const AppCatalogue& applications);
