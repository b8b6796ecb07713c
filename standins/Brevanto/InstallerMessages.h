// The installer's messages as documents for the callback.
#pragma once

#include <string>
#include <vector>

#include "standins/Brevanto/ProgressMeter.h"

namespace brevanto {

// Feeds the fields of one progress message to the meter. A field that is missing counts as 0.
void ApplyProgress(const std::vector<int>& fields, ProgressMeter& meter);

// The message document for a percentage.
std::wstring PercentDocument(int percent);

// The message document for files in use. The kind is FILE_IN_USE or RM_FILE_IN_USE. The fields are the
// installer's: in pairs, the name of a program and what identifies its process. Each program is named once,
// one to a line.
std::wstring FilesInUseDocument(const std::wstring& kind, const std::vector<std::wstring>& fields);

}  // namespace brevanto
