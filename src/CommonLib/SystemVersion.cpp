#include "CommonLib/SystemVersion.h"

#include <windows.h>

#include <array>

namespace {

// The names by id, from 1. Ids 1 to 7 are older systems, which GetWindowsVersionId does not tell apart.
constexpr std::array versionNames = {L"WINDOWS_95",   L"WINDOWS_98", L"WINDOWS_ME",          L"WINDOWS_NT4",
                                     L"WINDOWS_2000", L"WINDOWS_XP", L"WINDOWS_SERVER_2003", L"WINDOWS_VISTA",
                                     L"WINDOWS_7",    L"WINDOWS_8",  L"WINDOWS_BLUE"};

}  // namespace

bool IsWindowsVersionOrGreater(WindowsVersion version) {
    OSVERSIONINFOEXW wanted{};
    wanted.dwOSVersionInfoSize = sizeof(wanted);
    wanted.dwMajorVersion = 6;
    wanted.dwMinorVersion = static_cast<DWORD>(version);
    wanted.wServicePackMajor = 0;
    DWORDLONG conditions = 0;
    for (const int field : {VER_MAJORVERSION, VER_MINORVERSION, VER_SERVICEPACKMAJOR}) {
        conditions = VerSetConditionMask(conditions, static_cast<DWORD>(field), VER_GREATER_EQUAL);
    }
    return VerifyVersionInfoW(&wanted, VER_MAJORVERSION | VER_MINORVERSION | VER_SERVICEPACKMAJOR,
                              conditions) != FALSE;
}

int GetWindowsVersionId() {
    for (const WindowsVersion version : {WindowsVersion::Windows8_1, WindowsVersion::Windows8,
                                         WindowsVersion::Windows7, WindowsVersion::Vista}) {
        if (IsWindowsVersionOrGreater(version)) return 8 + static_cast<int>(version);
    }
    return 0;
}

std::wstring GetWindowsVersionName(int id) {
    const bool known = id >= 1 && id <= static_cast<int>(versionNames.size());
    return known ? versionNames.at(static_cast<std::size_t>(id) - 1) : L"WINDOWS_UNKNOWN";
}
