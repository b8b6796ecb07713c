// What a rollout puts into the system's log of events. Functions of their arguments, for any thread.
#pragma once

#include <cstdint>
#include <string>

#include "tools/Rollout/Report.h"

namespace rollout {

enum class EventKind { Information, Warning, Error };

struct RunEvent {
    EventKind kind = EventKind::Information;
    std::uint32_t id = 0;
    std::wstring text;
};

// Returns the event for the beginning of a rollout, and the one for its end.
RunEvent BeginningOf(const Report& report);
RunEvent EndOf(const Report& report);

}  // namespace rollout
