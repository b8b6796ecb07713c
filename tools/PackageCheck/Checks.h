// All checks of a package.
#pragma once

#include <vector>

#include "tools/PackageCheck/Finding.h"
#include "tools/PackageCheck/Package.h"

namespace packagecheck {

// Returns what is wrong with the package, by file and place. Takes time in proportion to its files.
std::vector<Finding> CheckPackage(const Package& package);

}  // namespace packagecheck
