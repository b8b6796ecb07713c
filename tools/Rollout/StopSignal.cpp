#include "tools/Rollout/StopSignal.h"

#include <atomic>

namespace rollout {
namespace {

std::atomic<HANDLE> stopEvent = nullptr;

// Runs on a thread that the system makes for it.
BOOL WINAPI OnConsoleSignal(DWORD signal) {
    if (signal != CTRL_C_EVENT && signal != CTRL_BREAK_EVENT) return FALSE;
    SetEvent(stopEvent);
    return TRUE;
}

}  // namespace

StopSignal::StopSignal() : event(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    stopEvent = event.get();
    // A management engine may have started this program with Ctrl+C switched off.
    SetConsoleCtrlHandler(nullptr, FALSE);
    SetConsoleCtrlHandler(&OnConsoleSignal, TRUE);
}

StopSignal::~StopSignal() {
    SetConsoleCtrlHandler(&OnConsoleSignal, FALSE);
    stopEvent = nullptr;
}

bool StopSignal::IsGiven() const {
    return WaitForSingleObject(event.get(), 0) == WAIT_OBJECT_0;
}

}  // namespace rollout
