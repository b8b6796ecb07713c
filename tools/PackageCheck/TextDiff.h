// What two texts differ in.
#pragma once

#include <string>
#include <string_view>

namespace packagecheck {

// Returns the difference in the unified form, with three lines around each change; empty for equal texts.
// Carriage returns are left out of what is shown.
std::string UnifiedDiff(const std::string& path, std::string_view before, std::string_view after);

}  // namespace packagecheck
