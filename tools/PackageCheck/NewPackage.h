// A package to begin with.
#pragma once

#include <filesystem>
#include <string>

namespace packagecheck {

// Lays the sources of a package out in a folder, which is made. Returns false where the folder holds
// anything, or cannot be written; complaint then says why.
bool LayOutNewPackage(const std::filesystem::path& folder, std::string& complaint);

}  // namespace packagecheck
