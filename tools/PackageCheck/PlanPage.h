// A plan as a page that can be sent around.
#pragma once

#include <ostream>
#include <string>

#include "tools/PackageCheck/Plan.h"

namespace packagecheck {

// Writes one HTML file that needs nothing beside it: no script, no picture, no network. It goes by the
// reader's choice of dark or light.
void WritePlanPage(std::ostream& out, const Plan& plan, const std::string& folder);

}  // namespace packagecheck
