// The plan of the run on this machine.
#pragma once

#include <string>
#include <vector>

#include "catalogue/IMsiInterface.h"
#include "settings/Localizer.h"
#include "tools/Rollout/Options.h"

namespace rollout {

// Returns the lines of the plan of the package in whose folder this program lies: computed as PackageCheck
// does, by what the package's library says of the packages and of this machine.
std::vector<std::wstring> PlanLines(IMsiInterface& library, const Localizer& localizer,
                                    const Options& options);

}  // namespace rollout
