// The lists of the print spooler.
#pragma once

#include <windows.h>

#include <cstdint>

#include "standins/PrinterQueue/Spooler.h"

namespace printerqueue {

// Returns the last error, and a code that is not 0 where a call that failed has left none.
std::uint32_t LastError();

// Fills the state; returns 0 or the system's error code.
std::uint32_t ReadSpoolerState(SpoolerState& state);

}  // namespace printerqueue
