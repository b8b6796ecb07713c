// A plan for programs.
#pragma once

#include <ostream>
#include <string>

#include "tools/PackageCheck/Plan.h"

namespace packagecheck {

// Writes a document of the form that docs/package-plan.schema.json describes.
void WritePlanJson(std::ostream& out, const Plan& plan, const std::string& folder);

}  // namespace packagecheck
