// The start of a program where the system may lose it.
#pragma once

#include <windows.h>

// Starts by the function, which returns whether it could and leaves the thread's last error. A loaded Wine
// sometimes loses a process before its first instruction, and says so by one error: nothing of the program
// has run then, so it is started once more.
template <class Start>
bool StartUnlessLost(const Start& start) {
    bool started = start();
    for (int lost = 0; !started && lost < 3 && GetLastError() == ERROR_INTERNAL_ERROR; ++lost)
        started = start();
    return started;
}
