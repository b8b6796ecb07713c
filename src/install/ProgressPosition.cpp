#include "install/ProgressPosition.h"

#include <cstdint>

int NextStep(int current, int total, bool uninstalling) {
    if (uninstalling) return current - 1 > 0 ? current - 1 : current;
    return current + 1 < total ? current + 1 : current;
}

BarMove MoveBar(int currentStep, int percent, int highest, int low, int high, bool uninstalling) {
    constexpr std::int64_t stepWidth = 100;
    const std::int64_t base = currentStep * stepWidth;
    const std::int64_t forward = base + percent;
    // By design: on the way back the forward position is tested all the same.
    if (forward < low || forward > high) return {.inRange = false, .position = std::nullopt};
    const std::int64_t position = uninstalling ? base - percent : forward;
    const bool moves = uninstalling ? position < highest : position > highest;
    if (!moves) return {.inRange = true, .position = std::nullopt};
    return {.inRange = true, .position = static_cast<int>(position)};
}
