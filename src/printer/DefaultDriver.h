// The driver that the package proposes.
#pragma once

#include <string>

#include "settings/InstallSettings.h"

// Returns the identifier of the driver proposed for "mono", "color" or any other word, on this system. Any
// thread.
std::wstring GetDefaultDriver(const InstallSettings& settings, const std::wstring& colourClass);
