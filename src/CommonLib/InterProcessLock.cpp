#include "CommonLib/InterProcessLock.h"

#include "CommonLib/SecurityEveryone.h"
#include "CommonLib/Win32Exception.h"

InterProcessLock::InterProcessLock(const std::wstring& lockName) {
    SetName(lockName);
    SecurityEveryone everyone;
    createMutex(everyone.getAttributes(), lockName);
}

void InterProcessLock::acquire() {
    if (name.empty()) throw Win32Exception(L"InterProcessLock has no name", 0, L"CommonLib/InterProcessLock");
    Mutex::acquire();
}

InterProcessLockGuard::~InterProcessLockGuard() {
    try {
        lock.release();
    } catch (const Win32Exception&) {
        return;
    }
}
