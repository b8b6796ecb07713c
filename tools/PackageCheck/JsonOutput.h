// Findings for programs.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "tools/PackageCheck/Finding.h"

namespace packagecheck {

// Writes a document of the form that docs/package-check.schema.json describes.
void WriteJson(std::ostream& out, const std::vector<Finding>& findings, const std::string& folder);

// Writes a log of the Static Analysis Results Interchange Format, version 2.1.0, for build servers. Files are
// given from the package's root.
void WriteSarif(std::ostream& out, const std::vector<Finding>& findings);

}  // namespace packagecheck
