// The program where it is asked for a plan.
#pragma once

#include "tools/PackageCheck/CommandLine.h"
#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Program.h"

namespace packagecheck {

// Writes the plan of the run that the command line describes. Returns the exit code.
int WritePlan(const CommandLine& line, const Package& package, const Surroundings& surroundings);

}  // namespace packagecheck
