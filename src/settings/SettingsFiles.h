// The package's two settings files.
#pragma once

#include <string>

#include "settings/InstallSettings.h"

// All three return 0, or the error number of a file that cannot be opened; the log says which file that is.

// Reads defaultInstallSettings.xml into the settings. Of a file that cannot be opened they take nothing.
int LoadDefaults(InstallSettings& settings);

// Lays the file's elements over the settings.
[[nodiscard]] int MergeFile(InstallSettings& settings, const std::wstring& path);

// Appends the file's text.
int ReadFromFile(const std::wstring& path, std::wstring& text);
