// Long questions to the system without leaving the windows of this thread blank.
#pragma once

#include <functional>

// Runs the work on a thread of its own and returns its result. Meanwhile the cursor says to wait, this
// thread's windows are painted and take devices that arrive, and all other input to them is dropped. Where
// the system starts no thread the work runs on this one. An exception is reported and counts as no.
bool RunPainted(const std::function<bool()>& work);
