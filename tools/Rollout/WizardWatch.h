// Watches a silent run of the wizard until it is over, and tells of it as it goes.
#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

#include "tools/Rollout/BoxKeeper.h"
#include "tools/Rollout/Inquirer.h"
#include "tools/Rollout/LogTail.h"
#include "tools/Rollout/Options.h"
#include "tools/Rollout/PackageEntry.h"
#include "tools/Rollout/ProcessTree.h"
#include "tools/Rollout/StopSignal.h"
#include "tools/Rollout/Verdict.h"

namespace rollout {

// What a watch has seen.
struct WatchedRun {
    RunFacts facts;
    std::vector<RunRecord> records;
    // By the path of a package: seconds from the start until it was seen as it is meant to be.
    std::map<std::wstring, double> seenAfter;
};

class WizardWatch {
public:
    // The inquirer has described the package already. All of them outlive the watch.
    WizardWatch(const Options& given, const PackageDescription& package, Inquirer& library,
                const StopSignal& stopSignal);

    // Starts the wizard and returns when it is over: ended, or terminated since time was up or the signal was
    // given.
    WatchedRun Run();

private:
    using Clock = std::chrono::steady_clock;

    bool IsToEnd();
    void Look();
    void ReadLog();
    void AskLibrary();
    void NoteStates(const std::vector<PackageState>& states);
    std::wstring WizardArguments(const std::wstring& packageFolder) const;

    const Options& options;
    const PackageDescription& description;
    Inquirer& inquirer;
    const StopSignal& stop;
    LogTail tail;
    RecordReader reader;
    BoxKeeper boxes;
    Clock::time_point started = Clock::now();
    Clock::time_point lastAsked = started;
    bool isAsking = false;
    DWORD wizardId = 0;
    WatchedRun run;
};

}  // namespace rollout
