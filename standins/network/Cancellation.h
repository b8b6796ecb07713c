// Ends from another thread what a library is doing.
#pragma once

#include <windows.h>

#include "framework/Handles.h"

namespace discovery {

// May be used by any thread.
class Cancellation {
public:
    Cancellation() : event(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}

    void Begin() const { ResetEvent(event.get()); }
    void Cancel() const { SetEvent(event.get()); }
    // Set from Cancel on until the next Begin.
    HANDLE Event() const { return event.get(); }

private:
    KernelHandle event;
};

}  // namespace discovery
