// What this process holds of the things that leak.
#pragma once

#include <functional>
#include <ostream>

struct ObjectCounts {
    int kernelHandles = 0;
    int gdiObjects = 0;
    // 0 on a system that does not count them.
    int userObjects = 0;
    // Blocks of this program's own memory.
    int allocations = 0;

    friend bool operator==(const ObjectCounts&, const ObjectCounts&) = default;
};

void PrintTo(const ObjectCounts& counts, std::ostream* stream);

ObjectCounts CountObjects();

// Whether the deed leaves the counts as they were. What a thread leaves behind for a moment is waited for,
// and the deed is done up to three times: the system makes things of its own on the way, but a leak grows
// each time.
bool LeavesNothingBehind(const std::function<void()>& deed);
