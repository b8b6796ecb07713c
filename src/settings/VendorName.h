// The vendor whose name stands in paths, keys and names.
#pragma once

#include "settings/InstallSettings.h"

// Gives the settings the name that stands for a vendor where they have none. Returns false for settings that
// had none. Reads and writes OEM.
bool SettleVendor(InstallSettings& settings);
