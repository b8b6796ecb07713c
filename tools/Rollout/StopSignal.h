// The wish of whoever sits at the console to end the run, by Ctrl+C or Ctrl+Break.
#pragma once

#include <windows.h>

#include "framework/Handles.h"

namespace rollout {

// One at a time. As long as it lives these keys set an event and do nothing else.
class StopSignal {
public:
    StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;
    ~StopSignal();

    bool IsGiven() const;
    // Set when it is given, and never reset.
    HANDLE Event() const { return event.get(); }

private:
    KernelHandle event;
};

}  // namespace rollout
