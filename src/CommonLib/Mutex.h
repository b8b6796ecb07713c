// A named mutex of the system, shared between processes.
#pragma once

#include <windows.h>

#include <atomic>
#include <string>

#include "framework/Handles.h"

// Recursive on the thread that holds it. The handle is closed with the object.
class Mutex {
public:
    void SetName(const std::wstring& mutexName) { name = mutexName; }

    // Creates the mutex, not owned, or opens the one of that name, and keeps the handle. The attributes may
    // be null. Throws Win32Exception.
    HANDLE createMutex(SECURITY_ATTRIBUTES* attributes, const std::wstring& mutexName);
    // Whether the last createMutex has found a mutex of that name.
    bool WasThereBefore() const { return wasThereBefore; }
    // Opens an existing mutex with full access and keeps the handle. Throws Win32Exception if there is none.
    HANDLE openMutex(const std::wstring& mutexName);

    // Waits without limit. A mutex that a dead process left behind counts as acquired. Throws Win32Exception.
    void acquire();
    // Undoes all acquire calls of the owning thread at once; does nothing on another thread. Throws
    // Win32Exception.
    void release();

protected:
    std::wstring name;

private:
    KernelHandle handle;
    bool wasThereBefore = false;
    // The owner alone writes both; other threads compare ownerThread with their own id.
    std::atomic<DWORD> lockCount = 0;
    std::atomic<DWORD> ownerThread = 0;
};
