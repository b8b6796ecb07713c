// The judgement of a run: by the state that the packages are in afterwards together with what the log says,
// and not by either alone. Functions of their arguments, for any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/Rollout/Options.h"
#include "tools/Rollout/PackageEntry.h"
#include "tools/Rollout/Questions.h"
#include "tools/Rollout/RunLog.h"

namespace rollout {

// The codes with which this program ends, as Windows and management engines know them.
namespace Code {

inline constexpr std::uint32_t Done = 0;
inline constexpr std::uint32_t CannotRun = 87;
inline constexpr std::uint32_t NoAdministrator = 740;
inline constexpr std::uint32_t TimeIsUp = 1460;
inline constexpr std::uint32_t Cancelled = 1602;
inline constexpr std::uint32_t Failed = 1603;
inline constexpr std::uint32_t InstallerBusy = 1618;
inline constexpr std::uint32_t NewerInstalled = 1638;
inline constexpr std::uint32_t RestartWanted = 3010;

}  // namespace Code

enum class PackageOutcome {
    Installed,
    Updated,
    Unchanged,
    Newer,
    LeftOut,
    Removed,
    Missing,
    Remains,
    Unknown
};

// What is known of a run when it is over.
struct RunFacts {
    bool timeIsUp = false;
    bool cancelled = false;
    // The wizard's, or nothing if it did not come to its end.
    std::optional<std::uint32_t> exitCode;
    QuestionPolicy onQuestion = QuestionPolicy::Answer;
    LogFindings log;
    std::vector<AskedQuestion> questions;
    // Of a removal: what the library returned for each package that it was asked to remove.
    std::vector<std::uint32_t> removalCodes;
};

struct PackageResult {
    PackageOutcome outcome = PackageOutcome::Unknown;
    std::uint32_t code = Code::Done;
    // Nothing where the library did not answer.
    std::optional<PackageState> after;
    // From the start of the run until the package was seen as it is meant to be.
    std::optional<double> seconds;
};

struct Verdict {
    std::uint32_t code = Code::Done;
    // Whole sentences for people.
    std::wstring reason;
};

// Returns the result of each package of an installation, in their order; the states are nothing where the
// library did not answer.
std::vector<PackageResult> JudgeInstalled(const std::vector<PackageEntry>& packages,
                                          const std::vector<std::optional<PackageState>>& after,
                                          const RunFacts& facts);
Verdict JudgeInstallation(const std::vector<PackageResult>& results, const RunFacts& facts);

// The same for a removal.
std::vector<PackageResult> JudgeRemoved(const std::vector<PackageEntry>& packages,
                                        const std::vector<std::optional<PackageState>>& after,
                                        const RunFacts& facts);
Verdict JudgeRemoval(const std::vector<PackageResult>& results, const RunFacts& facts);

// Returns the word for an outcome, as reports hold it.
std::string_view NameOf(PackageOutcome outcome);

}  // namespace rollout
