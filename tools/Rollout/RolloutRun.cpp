#include "tools/Rollout/RolloutRun.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <utility>

#include "CommonLib/Files.h"
#include "CommonLib/SystemText.h"
#include "CommonLib/TextUtilities.h"
#include "CommonLib/UserRights.h"
#include "CommonLib/Utf8.h"
#include "tools/PrintLine.h"
#include "tools/Rollout/EventLog.h"
#include "tools/Rollout/OutputFiles.h"

namespace rollout {
namespace {

// Reading the packages of a slow share takes its time.
constexpr std::chrono::seconds longestDescription{180};
// Windows Installer goes on for a while with what an ended program has asked of it.
constexpr std::chrono::seconds longestSettling{60};

std::string TimeInUtc() {
    SYSTEMTIME now{};
    GetSystemTime(&now);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04u-%02u-%02uT%02u:%02u:%02uZ", now.wYear, now.wMonth, now.wDay,
                  now.wHour, now.wMinute, now.wSecond);
    return text.data();
}

std::wstring ComputerName() {
    std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> name{};
    auto size = static_cast<DWORD>(name.size());
    return GetComputerNameW(name.data(), &size) != FALSE ? std::wstring(name.data(), size) : std::wstring();
}

std::wstring LineOf(const PackageEntry& entry) {
    return entry.product + L" " + entry.version + L"  " + std::wstring(WordsFor(entry.intention)) + L"  (" +
           std::wstring(FileNameOf(entry.path)) + L")";
}

}  // namespace

RolloutRun::RolloutRun(const Options& given)
    : options(given),
      report{.action = given.uninstall ? "uninstall" : "install",
             .computer = ComputerName(),
             .folder = GetExeDirectory(),
             .started = TimeInUtc()} {}

std::uint32_t RolloutRun::Run() {
    if (options.dryRun) return PrintPlan().code;
    if (!IsUserAdministrator()) {
        PrintLine(L"This needs the rights of an administrator.");
        return Code::NoAdministrator;
    }
    WriteEvent(BeginningOf(report));
    report.verdict = CarryOut();
    Conclude();
    return report.verdict.code;
}

Verdict RolloutRun::CarryOut() {
    if (const auto verdict = WaitForTurn()) return *verdict;
    started = Clock::now();
    if (const auto obstacle = Describe()) return *obstacle;
    return options.uninstall ? Uninstall() : Install();
}

// The package is looked at when nobody else changes the system any more.
std::optional<Verdict> RolloutRun::WaitForTurn() {
    const auto end = Clock::now() + options.wait;
    if (!lock.Acquire(Clock::now(), stop) || IsInstallationRunning()) {
        PrintLine(L"Waiting for another installation to end.");
    }
    if (lock.Acquire(end, stop) && WaitForOtherInstallations(end, stop)) return std::nullopt;
    if (stop.IsGiven()) return Verdict{Code::Cancelled, L"The run was cancelled."};
    return Verdict{Code::InstallerBusy, L"Another installation is running."};
}

std::optional<Verdict> RolloutRun::Describe() {
    const auto asked = Clock::now();
    const auto limit = std::min(longestDescription, options.timeout);
    inquirer = std::make_unique<Inquirer>(options);
    const auto answer = inquirer->Ask(Question::describe, &ReadDescription, limit, &stop);
    if (stop.IsGiven()) return Verdict{Code::Cancelled, L"The run was cancelled."};
    if (!answer && Clock::now() - asked >= options.timeout) return Verdict{Code::TimeIsUp, L"Time is up."};
    if (!answer) return Verdict{Code::Failed, inquirer->WhyNoAnswer()};
    description = *answer;
    report.vendor = description.vendor;
    report.packages = description.packages;
    return FindObstacle();
}

std::optional<Verdict> RolloutRun::FindObstacle() const {
    if (!description.failure.empty()) return Verdict{Code::CannotRun, description.failure};
    if (description.packages.empty()) {
        return Verdict{Code::CannotRun, L"The package offers nothing to this system."};
    }
    if (!options.uninstall && !description.canRunSilently) {
        return Verdict{
            Code::CannotRun,
            L"The package cannot run silently: it needs SILENT_INSTALL and either HIDE_DISCOVERY or a "
            L"printer by -ip."};
    }
    return std::nullopt;
}

Verdict RolloutRun::PrintPlan() {
    const std::optional<Verdict> obstacle = Describe();
    for (const std::wstring& line : description.plan) PrintLine(line);
    if (obstacle) PrintLine(obstacle->reason);
    return obstacle.value_or(Verdict{});
}

Verdict RolloutRun::Install() {
    PrintLine(L"Package of " + description.vendor + L":");
    for (const PackageEntry& entry : description.packages) PrintLine(L"  " + LineOf(entry));
    WatchedRun run = WizardWatch(options, description, *inquirer, stop).Run();
    std::vector<std::optional<PackageState>> after = AskAfterwards();
    if (run.facts.cancelled && TakeBack(after)) after = AskAfterwards();
    report.results = JudgeInstalled(description.packages, after, run.facts);
    for (std::size_t index = 0; index < report.results.size(); ++index) {
        const auto seen = run.seenAfter.find(description.packages[index].path);
        if (seen != run.seenAfter.end()) report.results[index].seconds = seen->second;
    }
    report.questions = run.facts.questions;
    report.log = std::move(run.records);
    return JudgeInstallation(report.results, run.facts);
}

std::chrono::milliseconds RolloutRun::TimeLeft() const {
    const auto left = options.timeout - (Clock::now() - started);
    return std::max(std::chrono::duration_cast<std::chrono::milliseconds>(left),
                    std::chrono::milliseconds(0));
}

std::vector<std::optional<PackageState>> RolloutRun::AskAfterwards() {
    inquirer.reset();
    static_cast<void>(WaitForInstallerToSettle(longestSettling));
    inquirer = std::make_unique<Inquirer>(options);
    const auto states = inquirer->Ask(Question::states, &ReadStates, longestAnswer);
    std::vector<std::optional<PackageState>> after(description.packages.size());
    if (!states) {
        PrintLine(L"ERROR: " + inquirer->WhyNoAnswer());
    } else if (states->size() != after.size()) {
        PrintLine(L"ERROR: The package offers " + std::to_wstring(states->size()) + L" packages now, and " +
                  std::to_wstring(after.size()) + L" at the beginning.");
    } else {
        std::ranges::copy(*states, after.begin());
    }
    return after;
}

bool RolloutRun::TakeBack(const std::vector<std::optional<PackageState>>& states) {
    bool isAny = false;
    for (std::size_t index = states.size(); index-- > 0;) {
        const PackageEntry& entry = description.packages[index];
        if (entry.before.installed || !states[index] || !states[index]->installed) continue;
        isAny = true;
        PrintLine(L"Removing again: " + entry.product);
        if (!Remove(entry, longestAnswer)) break;
    }
    return isAny;
}

std::optional<std::uint32_t> RolloutRun::Remove(const PackageEntry& entry, std::chrono::milliseconds limit) {
    return inquirer->Ask(std::string(Question::remove) + ToUtf8(entry.path), &ReadRemoval, limit);
}

// The reverse of the order in which packages are installed.
Verdict RolloutRun::Uninstall() {
    RunFacts facts;
    for (std::size_t left = description.packages.size(); left > 0; --left) {
        const PackageEntry& entry = description.packages[left - 1];
        facts.cancelled = stop.IsGiven();
        facts.timeIsUp = !facts.cancelled && TimeLeft().count() == 0;
        if (facts.cancelled || facts.timeIsUp) break;
        if (!entry.before.installed || entry.before.IsNewer()) continue;
        PrintLine(L"Removing: " + entry.product);
        const auto code = Remove(entry, TimeLeft());
        facts.timeIsUp = !code && TimeLeft().count() == 0;
        if (!code) break;
        facts.removalCodes.push_back(*code);
    }
    report.results = JudgeRemoved(description.packages, AskAfterwards(), facts);
    return JudgeRemoval(report.results, facts);
}

void RolloutRun::Conclude() {
    const std::chrono::duration<double> passed = Clock::now() - made;
    report.seconds = passed.count();
    for (std::size_t index = 0; index < report.results.size(); ++index) {
        const std::string_view outcome = NameOf(report.results[index].outcome);
        PrintLine(description.packages[index].product + L": " + std::wstring(outcome.begin(), outcome.end()));
    }
    const std::string document = WriteReport(report);
    if (!options.reportPath.empty() && !WriteWholeFile(options.reportPath, document)) {
        PrintLine(L"ERROR: The report cannot be written: " + options.reportPath);
    }
    if (!options.collectFolder.empty()) {
        const std::wstring target = ExpandEnvironment(options.collectFolder);
        const std::wstring failure = CollectFiles(target, description.logFolder, document);
        if (!failure.empty()) PrintLine(L"ERROR: " + failure);
    }
    WriteEvent(EndOf(report));
    PrintLine(report.verdict.reason + L" (" + std::to_wstring(report.verdict.code) + L")");
}

}  // namespace rollout
