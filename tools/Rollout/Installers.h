// Other installations on this system.
#pragma once

#include <chrono>

#include "framework/Handles.h"
#include "tools/Rollout/StopSignal.h"

namespace rollout {

// Returns true if another copy of the wizard runs in this session, or Windows Installer is at work.
bool IsInstallationRunning();

// Waits until there is none, at most that long. Returns false if there still is, or if the signal was given.
bool WaitForOtherInstallations(std::chrono::steady_clock::time_point end, const StopSignal& stop);

// Waits until Windows Installer has come to rest, at most that long. Returns false if it has not.
bool WaitForInstallerToSettle(std::chrono::seconds limit);

// Holds all other rollouts of the system off as long as it lives.
class RolloutLock {
public:
    RolloutLock();
    RolloutLock(const RolloutLock&) = delete;
    RolloutLock& operator=(const RolloutLock&) = delete;
    ~RolloutLock();

    // Waits for the end of another rollout. Returns false if it does not end in time, or if the signal was
    // given.
    bool Acquire(std::chrono::steady_clock::time_point end, const StopSignal& stop);

private:
    KernelHandle mutex;
    bool isHeld = false;
};

}  // namespace rollout
