// A mutex that every user of the machine can take, and that must have a name.
#pragma once

#include <string>

#include "CommonLib/Mutex.h"

class InterProcessLock : public Mutex {
public:
    // Creates or opens the system's mutex of that name, open to everyone. Throws Win32Exception.
    explicit InterProcessLock(const std::wstring& lockName);

    // As Mutex::acquire. Throws Win32Exception with code 0 if the name is empty.
    // NOLINTNEXTLINE(bugprone-derived-method-shadowing-base-method): nobody has a lock by the base.
    void acquire();
};

// Holds an InterProcessLock from construction to the end of its life.
class InterProcessLockGuard {
public:
    explicit InterProcessLockGuard(InterProcessLock& guarded) : lock(guarded) { lock.acquire(); }
    InterProcessLockGuard(const InterProcessLockGuard&) = delete;
    InterProcessLockGuard& operator=(const InterProcessLockGuard&) = delete;
    // A release that fails has nobody to report to here: the holder is leaving already.
    ~InterProcessLockGuard();

private:
    InterProcessLock& lock;
};
