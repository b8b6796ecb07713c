// Names of ports as a list shows them in a language that reads from right to left: marks keep brackets and
// addresses in their order. These are functions of their arguments and may run on any thread.
#pragma once

#include <string>
#include <string_view>

// Returns the name with marks after the first closing bracket of each kind, where the texts read from right
// to left, and around an address, where the user's own language does.
std::wstring ShownPortName(std::wstring name, bool rightToLeftTexts, bool rightToLeftLocale);

// Returns the name without the marks around an address; any other name comes back as it is.
std::wstring ChosenPortName(std::wstring_view shown, bool rightToLeftLocale);
