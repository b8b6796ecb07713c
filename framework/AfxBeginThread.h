// Starts worker threads. Nobody joins them: a worker that others must wait for counts itself somewhere.
#pragma once

#include <functional>

// Runs the procedure on a new thread, whose exit code is the procedure's result. False if the system starts
// no thread; the procedure then never runs. An exception that leaves the procedure is reported to the
// application object and ends the thread only.
[[nodiscard]] bool AfxBeginThread(std::function<unsigned()> procedure);
