// Where the port monitor of the tests keeps what it was told.
#pragma once

inline constexpr wchar_t networkMonitorName[] = L"Standard TCP/IP Port";
inline constexpr wchar_t networkMonitorKey[] =
    L"System\\CurrentControlSet\\Control\\Print\\Monitors\\Standard TCP/IP Port";
// While an event of this name exists, the monitor waits for it before it adds a port, at most half a minute.
inline constexpr wchar_t gateName[] = L"KestruneTestMonitorGate";
// Below the monitor's key, a value for each port: its name, and the structure with which it was added.
inline constexpr wchar_t portsKey[] = L"Ports";
