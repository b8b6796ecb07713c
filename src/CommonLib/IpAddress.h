// The system's own reading of internet addresses.
#pragma once

#include <string>

// 1 if the text is an IPv4 or an IPv6 address as the system reads it, another number if not. A system without
// the function is noted in the log and returns 0.
int IsValidIpAddress(const std::wstring& text);
