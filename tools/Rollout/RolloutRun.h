// One rollout, from the first look at the package to the code with which the program ends.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/Rollout/Inquirer.h"
#include "tools/Rollout/Installers.h"
#include "tools/Rollout/Options.h"
#include "tools/Rollout/Report.h"
#include "tools/Rollout/StopSignal.h"
#include "tools/Rollout/WizardWatch.h"

namespace rollout {

class RolloutRun {
public:
    // The options must outlive the object and hold no error.
    explicit RolloutRun(const Options& given);

    // Returns the code of the rollout. Once per object.
    std::uint32_t Run();

private:
    using Clock = std::chrono::steady_clock;

    Verdict CarryOut();
    // Looks at the package. Returns why there is nothing to carry out, if there is nothing.
    std::optional<Verdict> Describe();
    // Why the package that was described cannot be rolled out.
    std::optional<Verdict> FindObstacle() const;
    std::optional<Verdict> WaitForTurn();
    // Prints what a run would do.
    Verdict PrintPlan();
    Verdict Install();
    Verdict Uninstall();
    // Removes what a run that was broken off has installed, as the wizard does where it is cancelled. Returns
    // whether there was anything.
    bool TakeBack(const std::vector<std::optional<PackageState>>& states);
    // Has the library remove the product of a package. Returns the library's code, nothing where it does not
    // answer in time.
    std::optional<std::uint32_t> Remove(const PackageEntry& entry, std::chrono::milliseconds limit);
    std::chrono::milliseconds TimeLeft() const;
    // Ends the copy that was asked before, which may hang. What a fresh copy says of each package; nothing
    // for each where it does not answer.
    std::vector<std::optional<PackageState>> AskAfterwards();
    // Says how it went: on the console, in the report, in the collection and in the log of events.
    void Conclude();

    const Options& options;
    StopSignal stop;
    RolloutLock lock;
    Clock::time_point made = Clock::now();
    // When the turn of this rollout came.
    Clock::time_point started = made;
    std::unique_ptr<Inquirer> inquirer;
    PackageDescription description;
    Report report;
};

}  // namespace rollout
