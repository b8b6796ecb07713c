// Findings as lines for people and editors.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "tools/PackageCheck/Finding.h"

namespace packagecheck {

// Writes one line for each finding, "file:line:column: severity: message [rule]", and one with their numbers.
// Files are given from where the program runs, after the folder.
void WriteText(std::ostream& out, const std::vector<Finding>& findings, const std::string& folder,
               bool hasColour);

// Returns "2 errors, 1 warning".
std::string Summary(const std::vector<Finding>& findings);

}  // namespace packagecheck
