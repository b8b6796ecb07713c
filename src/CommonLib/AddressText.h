// Checks of what a user types as an address. Both take time in proportion to the text and may run on any
// thread.
#pragma once

#include <string_view>

// Returns true if the text is one or more labels joined by ".", each of ASCII letters, digits and hyphens
// with no hyphen at its edges. There is no limit to the length.
bool IsValidHostName(std::wstring_view text);

// Returns true if the text is four decimal numbers from 0 to 255 joined by ".", without leading zeros.
bool IsValidIpV4Text(std::wstring_view text);
