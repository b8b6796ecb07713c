// The plan of a run as lines for people.
#pragma once

#include <string>
#include <vector>

#include "catalogue/MSI_APP.h"

// Appends a line for each record, and below it those of its dependents, indented.
void AppendPlan(const std::vector<MSI_APP>& records, const std::wstring& indent,
                std::vector<std::wstring>& lines);
