// The worker threads that a test has set off: nobody joins them, so a test must wait for their end itself.
#pragma once

#include <windows.h>

#include <vector>

#include "tests/windows/world/PatchedImport.h"

// Knows the threads that the program starts during this object's life, of which there is one at a time.
class ThreadWatch {
public:
    ThreadWatch();
    ThreadWatch(const ThreadWatch&) = delete;
    ThreadWatch& operator=(const ThreadWatch&) = delete;
    // Waits for the threads, too.
    ~ThreadWatch();

    // Waits for the threads so far. Gives their exit codes, in the order of their starts; the code 259 of a
    // thread stands for one that does not end.
    static std::vector<DWORD> WaitForAll();

private:
    PatchedImport patch;
};
