// A print system to test with: drivers and a port monitor of the names that Windows has, made of what the
// tests' Windows brings.
#pragma once

#include <string>
#include <vector>

// Adds a driver of that name, made of the system's PostScript driver. Returns 0 or the system's error code.
unsigned long AddTestDriver(const std::wstring& name);
void RemoveTestDriver(const std::wstring& name);

// Adds a printer as its user does. Returns 0 or the system's error code.
unsigned long AddTestPrinter(const std::wstring& name, const std::wstring& port, const std::wstring& driver);

// Adds the monitor of the tests from its file as "Standard TCP/IP Port", whose ports are then added and
// removed as those of Windows' own. Returns 0 or the system's error code.
unsigned long AddTestMonitor(const std::wstring& libraryPath);

// Takes all ports of the monitor of the tests away.
void RemoveTestPorts();

// What the monitor was told of a port, as it was told; nothing for a port that it does not have.
std::vector<unsigned char> ToldOfPort(const std::wstring& port);

// The host that the monitor of the tests was told of a port, empty for a port that it does not have.
std::wstring HostOfPort(const std::wstring& port);
