// Worker threads that the end of the program waits for.
#pragma once

#include <functional>

class Controller;

// Runs the work on a new thread, whose exit code is the work's result, and counts it from before its start to
// after its end, however that comes. Returns false if the system starts no thread. Main thread.
[[nodiscard]] bool StartCountedWorker(Controller& controller, std::function<unsigned()> work);
