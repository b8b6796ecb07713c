// What the Finish buttons do.
#pragma once

#include "wizard/PageContext.h"

// Leaves the core run: to the page that asks for a restart where one is needed, out of the wizard otherwise.
// Main thread.
void LeaveForTheEnd(const PageContext& context);
