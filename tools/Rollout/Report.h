// The report of a rollout, in JSON. Its form is docs/rollout-report.schema.json.
#pragma once

#include <string>
#include <vector>

#include "tools/Rollout/PackageEntry.h"
#include "tools/Rollout/RunLog.h"
#include "tools/Rollout/Verdict.h"

namespace rollout {

struct Report {
    // "install" or "uninstall".
    std::string action;
    std::wstring computer;
    // The folder of this program.
    std::wstring folder;
    std::wstring vendor;
    // The time in UTC, such as "2026-03-01T09:05:07Z".
    std::string started;
    double seconds = 0;
    Verdict verdict;
    std::vector<PackageEntry> packages;
    // In the order of the packages; empty if the run did not begin.
    std::vector<PackageResult> results;
    std::vector<AskedQuestion> questions;
    std::vector<RunRecord> log;
};

// Returns the document, in UTF-8 and with line ends.
std::string WriteReport(const Report& report);

}  // namespace rollout
