// The rules as a page of the documentation.
#pragma once

#include <string>

namespace packagecheck {

// Returns a table in Markdown, one line for each rule in the order of AllRules.
std::string RuleTable();

}  // namespace packagecheck
