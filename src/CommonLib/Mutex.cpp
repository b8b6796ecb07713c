#include "CommonLib/Mutex.h"

#include "CommonLib/Win32Exception.h"

namespace {

constexpr wchar_t mutexSource[] = L"CommonLib/Mutex";

}  // namespace

HANDLE Mutex::createMutex(SECURITY_ATTRIBUTES* attributes, const std::wstring& mutexName) {
    const HANDLE created = CreateMutexW(attributes, FALSE, mutexName.c_str());
    const DWORD error = GetLastError();
    handle.reset(created);
    wasThereBefore = handle && error == ERROR_ALREADY_EXISTS;
    if (!handle) throw Win32Exception(L"Mutex::createMutex() CreateMutex failed", error, mutexSource);
    return handle.get();
}

HANDLE Mutex::openMutex(const std::wstring& mutexName) {
    handle.reset(OpenMutexW(MUTEX_ALL_ACCESS, TRUE, mutexName.c_str()));
    if (!handle) throw Win32Exception(L"Mutex::openMutex() openMutex failed", GetLastError(), mutexSource);
    return handle.get();
}

void Mutex::acquire() {
    const DWORD result = WaitForSingleObject(handle.get(), INFINITE);
    if (result == WAIT_OBJECT_0 || result == WAIT_ABANDONED) {
        ownerThread = GetCurrentThreadId();
        ++lockCount;
    } else if (result != WAIT_TIMEOUT) {
        throw Win32Exception(L"Mutex::acquire() WaitForSingleObject failed", GetLastError(), mutexSource);
    }
}

void Mutex::release() {
    if (GetCurrentThreadId() != ownerThread) return;
    // The fields are settled while the mutex is still held: straight after the last release they are another
    // thread's.
    ownerThread = 0;
    for (DWORD count = lockCount.exchange(0); count > 0; --count) {
        if (ReleaseMutex(handle.get()) == FALSE) {
            throw Win32Exception(L"Mutex::release() ReleaseMutex failed", GetLastError(), mutexSource);
        }
    }
}
