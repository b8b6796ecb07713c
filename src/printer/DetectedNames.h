// Names for the devices of a predefined configuration.
#pragma once

#include <string>

#include "catalogue/DriverInfo.h"
#include "settings/InstallSettings.h"

// Names the devices that ask for the detected name after the printer that was found, and lets none ask again.
void ApplyDetectedName(InstallSettings& settings, const DriverInfo& drivers, const std::wstring& printerName);
