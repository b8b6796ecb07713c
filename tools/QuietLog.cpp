// For programs that compute what the wizard does without doing it: its records go nowhere.
#include "CommonLib/Log.h"

void LogBasic(std::wstring_view /*message*/, std::wstring_view /*level*/) {}

void LogAdvanced(std::wstring_view /*message*/, std::wstring_view /*level*/) {}
