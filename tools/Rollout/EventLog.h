// The system's log of events.
#pragma once

#include "tools/Rollout/RunEvent.h"

namespace rollout {

// Writes the event under the source "Kestrune". One that cannot be written is lost: logging stops no rollout.
void WriteEvent(const RunEvent& event);

}  // namespace rollout
