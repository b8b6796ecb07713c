// What a test's program opens by its path, with the flags that it asks for.
#pragma once

#include <windows.h>

#include <string_view>

#include "tests/windows/world/PatchedImport.h"

// Notes until the end of its life. There is one at a time.
class OpenedPaths {
public:
    OpenedPaths();

    // The flags of the last path with that end that was opened; 0 where none was.
    static DWORD FlagsOf(std::wstring_view end);

private:
    PatchedImport opening;
};
