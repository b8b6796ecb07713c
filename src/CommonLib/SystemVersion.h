// Which Windows this is.
#pragma once

#include <cstdint>
#include <string>

// True on version 6 of that minor version or anything later: 0 is Vista, 1 is Windows 7, 2 is Windows 8, 3 is
// Windows 8.1.
bool IsWindowsVersionOrGreater(std::uint16_t minorVersion);

// 8 for version 6.0, 9 for 6.1, 10 for 6.2, 11 for 6.3 and everything later, 0 for anything older.
int GetWindowsVersionId();

// The name of such an id, as packages write it in SUPPORTEDOS.
std::wstring GetWindowsVersionName(int id);
