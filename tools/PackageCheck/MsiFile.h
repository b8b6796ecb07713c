// Opens .msi files: by libmsi where there is no Windows Installer.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "tools/PackageCheck/MsiContents.h"

namespace packagecheck {

// Returns the file's tables; null, and why, where it cannot be opened as a package. May run on any thread.
std::unique_ptr<MsiDatabase> OpenMsi(const std::filesystem::path& path, std::string& error);

// More rows of one table are not read.
inline constexpr std::size_t mostRows = 200'000;

}  // namespace packagecheck
