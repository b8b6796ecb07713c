#include "standins/Brevanto/ProgressMeter.h"

#include <algorithm>

namespace brevanto {
namespace {

constexpr int preparingShare = 10;

}  // namespace

void ProgressMeter::BeginPhase(std::int64_t total, bool backward, bool preparing) {
    total_ = total;
    done_ = 0;
    ticksPerData_ = 0;
    backward_ = backward;
    phaseStart_ = percent_;
    const int left = 100 - percent_;
    phaseShare_ = preparing ? std::min(preparingShare, left) : left;
}

void ProgressMeter::AddTicks(std::int64_t ticks) {
    if (backward_ || total_ <= 0 || ticks <= 0) return;
    done_ = std::min(done_ + ticks, total_);
    percent_ = std::max(percent_, phaseStart_ + static_cast<int>(phaseShare_ * done_ / total_));
}

void ProgressMeter::ExtendPhase(std::int64_t ticks) {
    if (ticks > 0) total_ += ticks;
}

}  // namespace brevanto
