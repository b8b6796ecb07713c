// An entry of a library of the system that answers as a test wants.
#pragma once

#include <windows.h>

#include "tests/windows/world/PatchedImport.h"

// Puts another function in place of one that the program looks up by its name, until the end of this object's
// life. One at a time.
class PatchedExport {
public:
    template <class Function>
    PatchedExport(const char* function, Function* replacement)
        : patch("GetProcAddress", Prepare(function, reinterpret_cast<void*>(replacement))) {}

private:
    using Lookup = FARPROC WINAPI(HMODULE, LPCSTR);
    static Lookup* Prepare(const char* function, void* replacement);

    PatchedImport patch;
};
