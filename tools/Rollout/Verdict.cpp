#include "tools/Rollout/Verdict.h"

#include <algorithm>

#include "CommonLib/MsiCodes.h"

namespace rollout {
namespace {

// What stands for a package that is not as it is meant to be.
std::uint32_t CodeForUndone(const RunFacts& facts) {
    if (facts.timeIsUp) return Code::TimeIsUp;
    if (facts.cancelled) return Code::Cancelled;
    return facts.log.packageCancelled && !facts.log.packageFailed ? Code::Cancelled : Code::Failed;
}

// A dependent runs with its parent, and only where the parent itself was installed without a wish for a
// restart.
bool IsLeftOutWithParent(const PackageEntry& entry, const std::vector<PackageEntry>& packages,
                         const RunFacts& facts) {
    const auto parent = std::ranges::find(packages, entry.parent, &PackageEntry::path);
    if (entry.parent.empty() || parent == packages.end()) return false;
    return facts.log.restartWanted || parent->intention == Intention::PassOver ||
           parent->intention == Intention::LeaveNewer;
}

PackageResult JudgeOneInstalled(const PackageEntry& entry, const PackageState& after, bool isLeftOut,
                                const RunFacts& facts) {
    PackageResult result{.after = after};
    if (after.IsAsWanted()) {
        const bool wasThere = entry.before.installed;
        result.outcome = entry.before.IsAsWanted() ? PackageOutcome::Unchanged
                         : wasThere                ? PackageOutcome::Updated
                                                   : PackageOutcome::Installed;
    } else if (after.IsNewer()) {
        result.outcome = PackageOutcome::Newer;
        result.code = Code::NewerInstalled;
    } else if (isLeftOut) {
        result.outcome = PackageOutcome::LeftOut;
    } else {
        result.outcome = PackageOutcome::Missing;
        result.code = CodeForUndone(facts);
    }
    return result;
}

PackageResult JudgeOneRemoved(const PackageEntry& entry, const PackageState& after, const RunFacts& facts) {
    PackageResult result{.after = after};
    if (!after.installed) {
        result.outcome = entry.before.installed ? PackageOutcome::Removed : PackageOutcome::Unchanged;
    } else if (after.IsNewer()) {
        result.outcome = PackageOutcome::Newer;
        result.code = Code::NewerInstalled;
    } else {
        result.outcome = PackageOutcome::Remains;
        result.code = CodeForUndone(facts);
    }
    return result;
}

bool Any(const std::vector<PackageResult>& results, PackageOutcome outcome) {
    return std::ranges::find(results, outcome, &PackageResult::outcome) != results.end();
}

bool WasAsked(const RunFacts& facts, QuestionKind kind) {
    return std::ranges::find(facts.questions, kind, &AskedQuestion::kind) != facts.questions.end();
}

std::optional<Verdict> JudgeInterruption(const RunFacts& facts) {
    if (facts.timeIsUp) return Verdict{Code::TimeIsUp, L"Time is up."};
    if (facts.cancelled) return Verdict{Code::Cancelled, L"The run was cancelled."};
    return std::nullopt;
}

// Why the packages did not get their turn, if they did not.
std::optional<Verdict> JudgeBeginning(const RunFacts& facts) {
    const LogFindings& log = facts.log;
    if (log.prerequisiteMissing) {
        return Verdict{Code::Failed,
                       L"A package needs the .NET Framework 4.0, which this system does not have."};
    }
    if (log.began) return std::nullopt;
    if (log.otherCopy || WasAsked(facts, QuestionKind::OtherCopy)) {
        return Verdict{Code::InstallerBusy, L"Another copy of the wizard is running."};
    }
    if (WasAsked(facts, QuestionKind::NoPermission)) {
        return Verdict{Code::NoAdministrator, L"The wizard wants the rights of an administrator."};
    }
    return Verdict{Code::Failed, L"The wizard ended before it began with the packages."};
}

std::optional<Verdict> JudgeEnd(const RunFacts& facts) {
    if (facts.log.crashed) return Verdict{Code::Failed, L"The wizard has failed; its log says where."};
    if (!facts.exitCode) return Verdict{Code::Failed, L"Nothing is known of how the wizard ended."};
    if (*facts.exitCode != 0) {
        return Verdict{Code::Failed, L"The wizard broke off with the code " +
                                         std::to_wstring(*facts.exitCode) + L" before its end."};
    }
    return std::nullopt;
}

std::optional<Verdict> JudgeFailures(const std::vector<PackageResult>& results, const RunFacts& facts) {
    const bool isMissing =
        std::ranges::any_of(results, [](const PackageResult& result) { return result.code == Code::Failed; });
    if (facts.log.packageFailed && WasAsked(facts, QuestionKind::InstallerBusy)) {
        return Verdict{Code::InstallerBusy, L"Windows Installer was busy with another installation."};
    }
    if (facts.log.packageFailed) {
        return Verdict{Code::Failed,
                       facts.log.failedRemovals.empty()
                           ? L"A package has failed. What the run had installed was removed again."
                           : L"A package has failed, and not all that the run had installed could be "
                             L"removed again."};
    }
    if (Any(results, PackageOutcome::Unknown)) {
        return Verdict{Code::Failed, L"The library of the package does not say what is installed."};
    }
    if (facts.log.libraryMissing) {
        return Verdict{Code::Failed, L"The library of the package could not be loaded."};
    }
    if (isMissing) {
        return Verdict{Code::Failed, L"A package is not installed, although the wizard reported no failure."};
    }
    if (facts.onQuestion == QuestionPolicy::Fail && !facts.questions.empty()) {
        return Verdict{Code::Failed, L"A box came up in the run."};
    }
    return std::nullopt;
}

Verdict JudgeSuccess(const std::vector<PackageResult>& results, const RunFacts& facts) {
    const bool isCancelled = std::ranges::any_of(
        results, [](const PackageResult& result) { return result.code == Code::Cancelled; });
    if (isCancelled || facts.log.packageCancelled) {
        return {Code::Cancelled, L"The installation of a package was cancelled."};
    }
    if (facts.log.restartWanted) return {Code::RestartWanted, L"All done. A restart is wanted."};
    if (Any(results, PackageOutcome::Newer)) {
        return {Code::NewerInstalled, L"Something newer than a package is installed, and was left as it is."};
    }
    return {Code::Done, L"All done."};
}

template <class Judge>
std::vector<PackageResult> JudgeEach(const std::vector<PackageEntry>& packages,
                                     const std::vector<std::optional<PackageState>>& after, Judge judge) {
    std::vector<PackageResult> results;
    for (std::size_t index = 0; index < packages.size(); ++index) {
        const std::optional<PackageState> state = index < after.size() ? after[index] : std::nullopt;
        results.push_back(state ? judge(packages[index], *state) : PackageResult{.code = Code::Failed});
    }
    return results;
}

bool WantsRestart(std::uint32_t code) {
    return code == MsiCode::RebootRequired || code == MsiCode::RebootInitiated;
}

}  // namespace

std::vector<PackageResult> JudgeInstalled(const std::vector<PackageEntry>& packages,
                                          const std::vector<std::optional<PackageState>>& after,
                                          const RunFacts& facts) {
    return JudgeEach(packages, after, [&](const PackageEntry& entry, const PackageState& state) {
        return JudgeOneInstalled(entry, state, IsLeftOutWithParent(entry, packages, facts), facts);
    });
}

Verdict JudgeInstallation(const std::vector<PackageResult>& results, const RunFacts& facts) {
    if (const auto verdict = JudgeInterruption(facts)) return *verdict;
    if (const auto verdict = JudgeBeginning(facts)) return *verdict;
    if (const auto verdict = JudgeEnd(facts)) return *verdict;
    if (const auto verdict = JudgeFailures(results, facts)) return *verdict;
    return JudgeSuccess(results, facts);
}

std::vector<PackageResult> JudgeRemoved(const std::vector<PackageEntry>& packages,
                                        const std::vector<std::optional<PackageState>>& after,
                                        const RunFacts& facts) {
    return JudgeEach(packages, after, [&](const PackageEntry& entry, const PackageState& state) {
        return JudgeOneRemoved(entry, state, facts);
    });
}

Verdict JudgeRemoval(const std::vector<PackageResult>& results, const RunFacts& facts) {
    if (const auto verdict = JudgeInterruption(facts)) return *verdict;
    const auto has = [&](std::uint32_t code) {
        return std::ranges::find(facts.removalCodes, code) != facts.removalCodes.end();
    };
    if (has(MsiCode::InstallAlreadyRunning)) {
        return {Code::InstallerBusy, L"Windows Installer was busy with another installation."};
    }
    if (Any(results, PackageOutcome::Unknown)) {
        return {Code::Failed, L"The library of the package does not say what is installed."};
    }
    if (Any(results, PackageOutcome::Remains)) {
        const bool cancelled = has(MsiCode::UserCancelled);
        return {cancelled ? Code::Cancelled : Code::Failed,
                cancelled ? L"The removal of a package was cancelled." : L"A package could not be removed."};
    }
    if (std::ranges::any_of(facts.removalCodes, &WantsRestart)) {
        return {Code::RestartWanted, L"All done. A restart is wanted."};
    }
    if (Any(results, PackageOutcome::Newer)) {
        return {Code::NewerInstalled, L"Something newer than a package is installed, and was left as it is."};
    }
    return {Code::Done, L"All done."};
}

std::string_view NameOf(PackageOutcome outcome) {
    switch (outcome) {
        case PackageOutcome::Installed:
            return "installed";
        case PackageOutcome::Updated:
            return "updated";
        case PackageOutcome::Unchanged:
            return "unchanged";
        case PackageOutcome::Newer:
            return "newer";
        case PackageOutcome::LeftOut:
            return "leftOut";
        case PackageOutcome::Removed:
            return "removed";
        case PackageOutcome::Missing:
            return "missing";
        case PackageOutcome::Remains:
            return "remains";
        case PackageOutcome::Unknown:
            break;
    }
    return "unknown";
}

}  // namespace rollout
