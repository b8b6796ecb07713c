// A mutex as another thread finds it.
#pragma once

#include <windows.h>

#include <string>
#include <thread>

#include "framework/Handles.h"

// Whether a thread of its own would have to wait for the mutex.
inline bool IsTaken(const std::wstring& name) {
    bool taken = false;
    std::thread([&] {
        const KernelHandle handle(OpenMutexW(SYNCHRONIZE | MUTEX_MODIFY_STATE, FALSE, name.c_str()));
        taken = WaitForSingleObject(handle.get(), 0) == WAIT_TIMEOUT;
        if (!taken) ReleaseMutex(handle.get());
    }).join();
    return taken;
}
