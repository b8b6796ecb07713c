#pragma once

#include <string>

// A port of this system.
struct PortEntry {
    std::wstring name;
    std::wstring description;  // empty where the system gives none
};
