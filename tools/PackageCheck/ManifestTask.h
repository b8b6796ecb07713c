// The manifests of a package as files.
#pragma once

#include <filesystem>
#include <ostream>
#include <string>

#include "tools/PackageCheck/Package.h"

namespace packagecheck {

// Writes the manifest of that kind into a folder, which is made, and says what is to be filled in. Returns
// false, and has written nothing over, where a file of it is there already or cannot be written; complaint
// then says why.
bool WriteManifest(const std::string& kind, const Package& package, const std::filesystem::path& folder,
                   std::ostream& out, std::string& complaint);

}  // namespace packagecheck
