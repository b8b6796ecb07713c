// What a process holds of the things that leak, seen from another one.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

struct ProcessCounts {
    std::size_t handles = 0;
    std::size_t gdiObjects = 0;
    // Of memory that no other process has.
    std::size_t bytes = 0;
};

ProcessCounts CountOf(HANDLE process);

// Says which of the counts have grown each time, which is what a leak does; empty where none has.
std::string GrowthIn(const std::vector<ProcessCounts>& counts);
// Says which of the counts have grown by more than that.
std::string GrowthBetween(const ProcessCounts& before, const ProcessCounts& after,
                          const ProcessCounts& allowed);
