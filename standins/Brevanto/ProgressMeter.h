// The percentage of a run.
#pragma once

#include <cstdint>

namespace brevanto {

// Makes one percentage for a package out of the ticks that the installer reports.
//
// The installer starts anew at each phase, counts backward while it rolls back, and its ticks may add up to
// more or less than it announced. The percentage nevertheless never falls and never passes 100.
class ProgressMeter {
public:
    // A phase begins, with so many ticks announced. While the installer is still preparing its script, the
    // phase gets a small share of the scale only. A backward phase leaves the percentage where it is.
    void BeginPhase(std::int64_t ticks, bool isBackward, bool isPreparing);

    // From here on each piece of action data counts as that many ticks; 0 where the action counts for
    // itself.
    void SetTicksPerData(std::int64_t ticks) { ticksPerData = ticks; }

    void AddActionData() { AddTicks(ticksPerData); }
    void AddTicks(std::int64_t ticks);

    // The phase turns out longer than announced.
    void ExtendPhase(std::int64_t ticks);

    // The run has ended well.
    void Complete() { percent = 100; }

    int Percent() const { return percent; }

private:
    std::int64_t total = 0;
    std::int64_t done = 0;
    std::int64_t ticksPerData = 0;
    bool backward = false;
    int phaseStart = 0;
    int phaseShare = 100;
    int percent = 0;
};

}  // namespace brevanto
