// The base of all background work.
#pragma once

#include <cstdint>

class Service {
public:
    Service() = default;
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;
    virtual ~Service() = default;

    // Does the work, or starts the thread that does it. The result's meaning is the service's own.
    virtual std::uint32_t DoRun() = 0;
    // Asks running work to stop; does not wait for it.
    virtual void Cancel() = 0;
    // Whether a thread is at work that takes a cancel and moves the walk on by itself. Any thread.
    virtual bool IsAtWork() const { return false; }

    // Takes back what the service keeps up outside of the program. Main thread, at the end of the program: no
    // run begins any more. May come again.
    virtual void Close() {}

    // The Controller passes over a service with this flag, and is the only one that sets it.
    bool disabled = false;
};
