// Where the port monitor of the tests keeps what it was told.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

inline constexpr wchar_t networkMonitorName[] = L"Standard TCP/IP Port";
inline constexpr wchar_t networkMonitorKey[] =
    L"System\\CurrentControlSet\\Control\\Print\\Monitors\\Standard TCP/IP Port";
// While an event of this name exists, the monitor waits for it before it adds a port, at most half a minute.
inline constexpr wchar_t gateName[] = L"KestruneTestMonitorGate";
// Below the monitor's key, a value for each port: its name, and the structure with which it was added.
inline constexpr wchar_t portsKey[] = L"Ports";

// The folder of the jobs, and the file of a port in it.
inline constexpr wchar_t printedFolder[] = L"C:\\Printed";

inline std::wstring FileOfPort(const std::wstring& port) {
    std::wstring name = port;
    std::ranges::replace_if(
        name,
        [](wchar_t unit) { return std::wstring_view(L"\\/:*?\"<>|").find(unit) != std::wstring_view::npos; },
        L'_');
    return std::wstring(printedFolder) + L"\\" + name + L".prn";
}
