// The printer ports of this system.
#pragma once

#include <string>
#include <vector>

struct PortEntry {
    std::wstring name;
    std::wstring description;  // empty where the system gives none
};

// Returns the ports in the system's order. A system that does not list its ports has none. Asks the print
// spooler and waits for it; any thread.
std::vector<PortEntry> SystemPorts();

// Returns true if the system has a port of exactly that name.
bool IsSystemPort(const std::wstring& name);
