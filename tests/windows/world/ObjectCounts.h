// What this process holds of the things that leak.
#pragma once

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
