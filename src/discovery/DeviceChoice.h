// What follows from the device that the user has picked.
#pragma once

#include <string>

// Writes the port and the names of the device into the settings, for the row with that name, and selects the
// parts of the package that go with it. Called on the thread of the page.
void TakeDevice(const std::wstring& rowName, bool selectedHasFax);
