// How a package went in a run, by the numbers that status documents hold.
#pragma once

#include <cstdint>

enum class PackageStatus : std::int32_t {
    NotRun = -1,
    Done = 0,
    Failed = 1,
    Cancelled = 2,
    Updated = 3,
    NotSupported = 4
};
