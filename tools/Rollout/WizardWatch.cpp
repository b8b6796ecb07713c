#include "tools/Rollout/WizardWatch.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "CommonLib/Files.h"
#include "CommonLib/Win32Exception.h"
#include "tools/PrintLine.h"

namespace rollout {
namespace {

constexpr std::chrono::milliseconds interval{200};
constexpr std::chrono::seconds libraryInterval{2};

// A folder that is there as long as the object. A run that cannot begin leaves its log in such a folder, and
// would otherwise leave it beside the program, where a share may be read-only.
class PassingFolder {
public:
    PassingFolder()
        : path(GetTemporaryFolder() + L"Kestrune-Rollout-" + std::to_wstring(GetCurrentProcessId())) {
        static_cast<void>(CreateFolderPath(path));
    }
    PassingFolder(const PassingFolder&) = delete;
    PassingFolder& operator=(const PassingFolder&) = delete;
    ~PassingFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    const std::wstring& Path() const { return path; }

private:
    std::wstring path;
};

}  // namespace

WizardWatch::WizardWatch(const Options& given, const PackageDescription& package, Inquirer& library,
                         const StopSignal& stopSignal)
    : options(given),
      description(package),
      inquirer(library),
      stop(stopSignal),
      tail(package.logFolder + L"Basic.log"),
      boxes(package.boxTexts, given.onQuestion) {
    run.facts.onQuestion = given.onQuestion;
}

WatchedRun WizardWatch::Run() {
    const PassingFolder folder;
    ProcessTree wizard(
        {.program = GetExeDirectory() + L"\\Kestrune.exe", .arguments = WizardArguments(folder.Path())});
    if (!wizard) {
        PrintLine(L"Kestrune.exe cannot be started: " + SystemMessage(wizard.Error()));
        return run;
    }
    wizardId = wizard.Id();
    while (!wizard.WaitForEnd(interval) && !IsToEnd()) Look();
    run.facts.exitCode = wizard.ExitCode();
    if (!run.facts.exitCode) wizard.Terminate();
    ReadLog();
    run.facts.questions = boxes.Questions();
    return run;
}

bool WizardWatch::IsToEnd() {
    run.facts.cancelled = stop.IsGiven();
    run.facts.timeIsUp = !run.facts.cancelled && Clock::now() - started >= options.timeout;
    return run.facts.cancelled || run.facts.timeIsUp;
}

void WizardWatch::Look() {
    ReadLog();
    for (const AskedQuestion& question : boxes.Look(wizardId)) {
        const std::string_view answer = NameOfAnswer(question.answer);
        PrintLine(L"A box came up: " + question.title + L": " + question.text + L" Answered: " +
                  std::wstring(answer.begin(), answer.end()));
    }
    AskLibrary();
}

void WizardWatch::ReadLog() {
    for (RunRecord& record : reader.Take(tail.ReadNew())) {
        run.facts.log.Note(record);
        if (!IsNoise(record)) {
            PrintLine(record.time + L"  " + (record.level.empty() ? L"" : record.level + L": ") +
                      record.message);
        }
        run.records.push_back(std::move(record));
    }
}

// A library that does not answer is not asked again in this run.
void WizardWatch::AskLibrary() {
    if (isAsking) {
        const auto states = inquirer.Take(&ReadStates, std::chrono::milliseconds(0));
        if (!states) return;
        isAsking = false;
        NoteStates(*states);
    } else if (Clock::now() - lastAsked >= libraryInterval) {
        isAsking = true;
        lastAsked = Clock::now();
        inquirer.Send(Question::states);
    }
}

void WizardWatch::NoteStates(const std::vector<PackageState>& states) {
    const std::chrono::duration<double> passed = Clock::now() - started;
    for (std::size_t index = 0; index < states.size() && index < description.packages.size(); ++index) {
        const PackageEntry& entry = description.packages[index];
        if (entry.before.IsAsWanted() || !states[index].IsAsWanted()) continue;
        if (run.seenAfter.try_emplace(entry.path, passed.count()).second)
            PrintLine(L"Installed: " + entry.product);
    }
}

std::wstring WizardWatch::WizardArguments(const std::wstring& packageFolder) const {
    std::wstring arguments;
    for (const std::wstring& given : options.wizardSwitches) arguments += QuoteArgument(given) + L" ";
    if (options.SwitchValue(L"pkgdir").empty()) arguments += QuoteArgument(L"-pkgdir=" + packageFolder);
    return arguments;
}

}  // namespace rollout
