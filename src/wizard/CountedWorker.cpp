#include "wizard/CountedWorker.h"

#include <utility>

#include "framework/AfxBeginThread.h"
#include "wizard/Controller.h"

namespace {

// Takes the worker off the count also when an exception ends it: the program waits for what counts.
class CountedRun {
public:
    explicit CountedRun(Controller& counter) : controller(counter) {}
    CountedRun(const CountedRun&) = delete;
    CountedRun& operator=(const CountedRun&) = delete;
    ~CountedRun() { controller.UpdateThreadCount(false); }

private:
    Controller& controller;
};

}  // namespace

bool StartCountedWorker(Controller& controller, std::function<unsigned()> work) {
    controller.UpdateThreadCount(true);
    const bool started = AfxBeginThread([&controller, work = std::move(work)] {
        const CountedRun run(controller);
        return work();
    });
    if (!started) controller.UpdateThreadCount(false);
    return started;
}
