// Which Windows this is.
#pragma once

#include <cstdint>
#include <string>

// The systems of version 6, by their minor version.
enum class WindowsVersion : std::uint16_t { Vista = 0, Windows7 = 1, Windows8 = 2, Windows8_1 = 3 };

// True on that system and on anything later.
bool IsWindowsVersionOrGreater(WindowsVersion version);

// 8 for version 6.0, 9 for 6.1, 10 for 6.2, 11 for 6.3 and everything later, 0 for anything older.
int GetWindowsVersionId();

// The name of such an id, as packages write it in SUPPORTEDOS.
std::wstring GetWindowsVersionName(int id);
