// Checks of what a user types as an address. All take time in proportion to the text and may run on any
// thread.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

// Returns true if the text is one or more labels joined by ".", each of ASCII letters, digits and hyphens
// with no hyphen at its edges. There is no limit to the length.
bool IsValidHostName(std::wstring_view text);

// Returns true if the text is four decimal numbers from 0 to 255 joined by ".", without leading zeros.
bool IsValidIpV4Text(std::wstring_view text);

// Returns the bytes of an IPv4 address (4, in the form above) or of an IPv6 address (16, with or without a
// zone after "%"); none for any other text.
std::vector<std::uint8_t> AddressBytes(std::wstring_view text);
