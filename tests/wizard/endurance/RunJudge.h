// Whether a run has left its products and its reports in one of the two ways that count as whole: installed
// and reported, or removed and reported. The judge knows nothing of the program but what it has left.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/wizard/LibraryCalls.h"

// What the library returns for a package.
struct DealtCodes {
    std::uint32_t install = 0;
    std::uint32_t removal = 0;
};

// What is known of a run. Packages go by their file names.
struct RunTraces {
    std::vector<LibraryCall> calls;
    std::map<std::wstring, DealtCodes> codes;
    // By the library's own account.
    std::set<std::wstring> installedBefore;
    std::set<std::wstring> installedAfter;
    std::string basicLog;
    std::string advancedLog;
    // Whether each record could be written.
    bool logsTakeRecords = true;
    // Whether the user has cancelled.
    bool isCancelled = false;
    // Whether it is the run of the optional software, which no failure stops.
    bool isOptional = false;
    // Whether the program has come to its end as well.
    bool hasEnded = false;
    // What the Finish page says of each package, where it was shown: 0 done, 1 failed, 2 cancelled, 3
    // updated.
    bool showsStatuses = false;
    std::map<std::wstring, int> statuses;
};

// Returns what is wrong, one sentence for each product and each report.
std::vector<std::string> FaultsOf(const RunTraces& run);
