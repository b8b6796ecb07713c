#pragma once

#include <cstdint>

namespace brevanto {

// Makes one percentage for a package out of the ticks that the installer reports.
//
// The installer starts anew at each phase, counts backward while it rolls back, and its ticks may add up to
// more or less than it announced. The percentage nevertheless never falls and never passes 100.
class ProgressMeter {
public:
    // A phase begins: `total` ticks are announced. While the installer is still `preparing` its script, the
    // phase gets a small share of the scale only. A `backward` phase leaves the percentage where it is.
    void BeginPhase(std::int64_t total, bool backward, bool preparing);

    // From here on each piece of action data counts as that many ticks; 0 where the action counts for
    // itself.
    void SetTicksPerData(std::int64_t ticks) { ticksPerData_ = ticks; }

    void AddActionData() { AddTicks(ticksPerData_); }
    void AddTicks(std::int64_t ticks);

    // The phase turns out longer than announced.
    void ExtendPhase(std::int64_t ticks);

    // The run has ended well.
    void Complete() { percent_ = 100; }

    int Percent() const { return percent_; }

private:
    std::int64_t total_ = 0;
    std::int64_t done_ = 0;
    std::int64_t ticksPerData_ = 0;
    bool backward_ = false;
    int phaseStart_ = 0;
    int phaseShare_ = 100;
    int percent_ = 0;
};

}  // namespace brevanto
