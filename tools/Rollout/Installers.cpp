#include "tools/Rollout/Installers.h"

#include <windows.h>

#include <algorithm>
#include <array>

#include "CommonLib/SecurityEveryone.h"
#include "CommonLib/SingleInstance.h"
#include "CommonLib/Win32Exception.h"

namespace rollout {
namespace {

using Clock = std::chrono::steady_clock;

constexpr wchar_t rolloutName[] = L"Global\\Kestrune-Rollout";
// Held by Windows Installer while it changes the system.
constexpr wchar_t installerName[] = L"Global\\_MSIExecute";
constexpr DWORD pollInMilliseconds = 250;

DWORD MillisecondsUntil(Clock::time_point end) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    return static_cast<DWORD>(std::max<long long>(left, 0));
}

bool IsWizardRunning() {
    const KernelHandle mutex(OpenMutexW(SYNCHRONIZE, FALSE, singleInstanceName));
    return static_cast<bool>(mutex);
}

bool IsInstallerAtWork() {
    const KernelHandle mutex(OpenMutexW(SYNCHRONIZE, FALSE, installerName));
    if (!mutex) return false;
    const DWORD result = WaitForSingleObject(mutex.get(), 0);
    if (result == WAIT_TIMEOUT) return true;
    ReleaseMutex(mutex.get());
    return false;
}

KernelHandle MakeMutex() {
    try {
        SecurityEveryone everyone;
        return KernelHandle(CreateMutexW(everyone.getAttributes(), FALSE, rolloutName));
    } catch (const Win32Exception&) {
        return KernelHandle(CreateMutexW(nullptr, FALSE, rolloutName));
    }
}

}  // namespace

bool IsInstallationRunning() {
    return IsWizardRunning() || IsInstallerAtWork();
}

bool WaitForOtherInstallations(Clock::time_point end, const StopSignal& stop) {
    while (!stop.IsGiven()) {
        if (!IsInstallationRunning()) return true;
        if (Clock::now() >= end) return false;
        WaitForSingleObject(stop.Event(), std::min(pollInMilliseconds, MillisecondsUntil(end)));
    }
    return false;
}

bool WaitForInstallerToSettle(std::chrono::seconds limit) {
    const auto end = Clock::now() + limit;
    while (IsInstallerAtWork()) {
        if (Clock::now() >= end) return false;
        Sleep(pollInMilliseconds);
    }
    return true;
}

RolloutLock::RolloutLock() : mutex(MakeMutex()) {}

RolloutLock::~RolloutLock() {
    if (isHeld) ReleaseMutex(mutex.get());
}

bool RolloutLock::Acquire(Clock::time_point end, const StopSignal& stop) {
    if (isHeld) return true;
    const std::array<HANDLE, 2> handles = {mutex.get(), stop.Event()};
    const DWORD result =
        WaitForMultipleObjects(handles.size(), handles.data(), FALSE, MillisecondsUntil(end));
    isHeld = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED_0;
    return isHeld;
}

}  // namespace rollout
