#include "tests/wizard/endurance/RunJudge.h"

#include <algorithm>

#include "CommonLib/Utf8.h"
#include "tests/wizard/endurance/LogJudge.h"

namespace {

constexpr wchar_t recordEnd[] = L"\r\n";

bool IsIn(std::uint32_t code, std::initializer_list<std::uint32_t> codes) {
    return std::ranges::find(codes, code) != codes.end();
}

bool Restarts(std::uint32_t code) {
    return IsIn(code, {1641, 3010});
}

bool Installs(std::uint32_t code) {
    return code == 0 || Restarts(code);
}

bool Fails(std::uint32_t code) {
    return !Installs(code) && code != 1602;
}

// A log or a language of the library's that is missing stops no run.
bool Stops(std::uint32_t code) {
    return Fails(code) && !IsIn(code, {1622, 1623});
}

class RunJudge {
public:
    explicit RunJudge(const RunTraces& traces) : run(traces) {
        for (const LibraryCall& call : run.calls) {
            if (call.name == L"MsiInstallApp") installs.push_back(call.Package());
            if (call.name == L"MsiUninstallApp") removals.push_back(call.Package());
            if (call.name == L"failed") Find("the library waited in vain", call.Argument(L"step"));
        }
        isRolledBack = run.isCancelled || (!run.isOptional && Count(Stops) > 0);
    }

    std::vector<std::string> Faults() {
        JudgeOrder();
        for (const std::wstring& package : std::set(installs.begin(), installs.end())) JudgeProduct(package);
        if (run.logsTakeRecords) JudgeReports();
        return faults;
    }

private:
    void Find(const std::string& what, const std::wstring& package) {
        faults.push_back(ToUtf8(package) + ": " + what);
    }

    void Find(const std::string& what) { faults.push_back(what); }

    DealtCodes CodesOf(const std::wstring& package) const {
        const auto found = run.codes.find(package);
        return found == run.codes.end() ? DealtCodes{} : found->second;
    }

    std::size_t Count(bool (*fits)(std::uint32_t)) const {
        return static_cast<std::size_t>(std::ranges::count_if(
            installs, [&](const std::wstring& package) { return fits(CodesOf(package).install); }));
    }

    void JudgeOrder() {
        const auto stop = std::ranges::find_if(
            installs, [&](const std::wstring& package) { return Stops(CodesOf(package).install); });
        if (!run.isOptional && stop != installs.end() && stop + 1 != installs.end())
            Find("is installed after a package that stops the run", *(stop + 1));
        for (const std::wstring& package : removals) {
            if (!isRolledBack) Find("is removed by a run that nothing stopped", package);
        }
    }

    void JudgeProduct(const std::wstring& package) {
        const DealtCodes codes = CodesOf(package);
        const bool wasInstalled = run.installedBefore.contains(package);
        const bool isRemoved = std::ranges::find(removals, package) != removals.end();
        if (isRolledBack && !wasInstalled && !isRemoved) Find("is left by a roll-back", package);
        if (wasInstalled && isRemoved) Find("is removed although it was there before", package);
        const bool isGone = isRemoved && Installs(codes.removal);
        const bool expected = wasInstalled || (Installs(codes.install) && !isGone);
        const bool isInstalled = run.installedAfter.contains(package);
        if (isInstalled && !expected) Find("is installed and not reported", package);
        if (!isInstalled && expected) Find("is reported and not installed", package);
        if (run.logsTakeRecords && isRemoved && codes.removal != 0) JudgeFailedRemoval(package, codes);
        if (run.showsStatuses) JudgeStatus(package, codes, isInstalled, wasInstalled);
    }

    // A package that failed may be there from before, or since it could not be removed; one that went in and
    // whose dependent failed has failed with it.
    void JudgeStatus(const std::wstring& package, const DealtCodes& codes, bool isInstalled,
                     bool wasInstalled) {
        const auto status = run.statuses.find(package);
        if (status == run.statuses.end()) {
            Find("is not on the Finish page", package);
            return;
        }
        const bool saysInstalled = IsIn(static_cast<std::uint32_t>(status->second), {0, 3});
        // By design: a removal that wants a restart counts as one that failed, so the status stays as it was.
        if (saysInstalled && !isInstalled && !Restarts(codes.removal))
            Find("is not installed, says the Finish page otherwise", package);
        const bool mayBeThere =
            wasInstalled || codes.removal != 0 || (Installs(codes.install) && HasFailedAny());
        if (!saysInstalled && isInstalled && !mayBeThere)
            Find("is installed, says the Finish page otherwise", package);
    }

    bool HasFailedAny() const { return Count(Fails) > 0; }

    void JudgeFailedRemoval(const std::wstring& package, const DealtCodes& codes) {
        const std::wstring report =
            package + L" failed with error=" + std::to_wstring(codes.removal) + recordEnd;
        if (CountIn(run.basicLog, report) == 0) Find("could not be removed and is not reported", package);
    }

    void ExpectRecords(const wchar_t* message, std::size_t count) {
        const std::size_t found = CountIn(run.basicLog, message + std::wstring(recordEnd));
        if (found != count) {
            Find(std::to_string(found) + " and not " + std::to_string(count) +
                 " times in the log: " + ToUtf8(message));
        }
    }

    void JudgeReports() {
        ExpectRecords(L"MSI Installer returned an error", Count(Fails));
        ExpectRecords(L"MSI Installer returned reboot requires.", Count(Restarts));
        if (run.hasEnded) JudgeEnd();
        // A package that fails under a cancel cancels once more.
        if (!run.isCancelled) ExpectRecords(L"User chose to cancel the installation.", isRolledBack ? 1 : 0);
        if (CountIn(run.basicLog, L"Unhandled exception") != 0) Find("an exception came through");
    }

    void JudgeEnd() {
        ExpectRecords(L"Installation is Finished", 1);
        if (CountIn(run.advancedLog, L"Controller::Close\r\n") != 1) Find("the walk was not closed");
    }

    const RunTraces& run;
    std::vector<std::wstring> installs;
    std::vector<std::wstring> removals;
    bool isRolledBack = false;
    std::vector<std::string> faults;
};

}  // namespace

std::vector<std::string> FaultsOf(const RunTraces& run) {
    return RunJudge(run).Faults();
}
