// A plan for people, as text.
#pragma once

#include <ostream>

#include "tools/PackageCheck/Plan.h"

namespace packagecheck {

void WritePlanText(std::ostream& out, const Plan& plan);

}  // namespace packagecheck
