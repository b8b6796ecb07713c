// A plan for people, as text.
#pragma once

#include <ostream>
#include <string>

#include "tools/PackageCheck/Plan.h"

namespace packagecheck {

// Returns whether the page is shown, and why not: "hidden, since HIDE_EULA is true".
std::string WordsFor(const PlannedPage& page);

void WritePlanText(std::ostream& out, const Plan& plan);

}  // namespace packagecheck
