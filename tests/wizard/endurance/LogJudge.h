// Whether a log is whole: its lines are records as the program writes them, each for itself.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/wizard/Logs.h"

// Returns what is wrong with these bytes of a log, one sentence for each kind of damage. A cut is a place, in
// bytes, at which a run was broken off: the record there may lack its end, and no more than that.
std::vector<std::string> DamageIn(std::string_view bytes, LogForm form, const std::vector<std::size_t>& cuts);

// How often the text stands in the log.
std::size_t CountIn(std::string_view bytes, std::wstring_view text);
