#include "standins/Brevanto/ProgressMeter.h"

#include <algorithm>

namespace brevanto {
namespace {

constexpr int preparingShare = 10;

}  // namespace

void ProgressMeter::BeginPhase(std::int64_t ticks, bool isBackward, bool isPreparing) {
    total = ticks;
    done = 0;
    ticksPerData = 0;
    backward = isBackward;
    phaseStart = percent;
    const int left = 100 - percent;
    phaseShare = isPreparing ? std::min(preparingShare, left) : left;
}

void ProgressMeter::AddTicks(std::int64_t ticks) {
    if (backward || total <= 0 || ticks <= 0) return;
    done = std::min(done + ticks, total);
    percent = std::max(percent, phaseStart + static_cast<int>(phaseShare * done / total));
}

void ProgressMeter::ExtendPhase(std::int64_t ticks) {
    if (ticks > 0) total += ticks;
}

}  // namespace brevanto
