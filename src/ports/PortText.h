// Names of ports as a list shows them in a language that reads from right to left: marks keep brackets and
// addresses in their order. These are functions of their arguments and may run on any thread.
#pragma once

#include <string>

// Returns the name with marks after the first closing bracket of each kind, where the texts read from right
// to left, and around an address, where the user's own language does.
std::wstring ShownPortName(std::wstring name, bool rightToLeftTexts, bool rightToLeftLocale);
