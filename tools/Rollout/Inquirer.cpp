#include "tools/Rollout/Inquirer.h"

#include <algorithm>
#include <array>
#include <utility>

#include "CommonLib/Files.h"
#include "CommonLib/Win32Exception.h"

namespace rollout {
namespace {

// In bytes: more than the description of any package, and a library that prints without an end is not
// listened to.
constexpr std::size_t longestInquiry = 1u << 26;
constexpr std::chrono::milliseconds signalInterval{200};
// The pipe of a process breaks a moment before its end.
constexpr std::chrono::seconds longestEnd{2};

// Both ends of a pipe, of which the one that the copy gets can be inherited.
struct Pipe {
    KernelHandle readEnd;
    KernelHandle writeEnd;
};

Pipe MakePipe() {
    Pipe pipe;
    SECURITY_ATTRIBUTES inheritable{.nLength = sizeof(SECURITY_ATTRIBUTES), .bInheritHandle = TRUE};
    CreatePipe(pipe.readEnd.put(), pipe.writeEnd.put(), &inheritable, 0);
    return pipe;
}

std::wstring ArgumentsOf(const Options& options) {
    std::wstring arguments = options.dryRun ? L"--inquire --dry-run" : L"--inquire";
    for (const std::wstring& given : options.wizardSwitches) arguments += L" " + QuoteArgument(given);
    return arguments;
}

}  // namespace

Inquirer::Inquirer(const Options& options) {
    Start(options);
    if (*copy) {
        reader = std::thread([this] { ReadLines(); });
    } else {
        ended = true;
    }
}

void Inquirer::Start(const Options& options) {
    Pipe questions = MakePipe();
    Pipe answers = MakePipe();
    SetHandleInformation(questions.writeEnd.get(), HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(answers.readEnd.get(), HANDLE_FLAG_INHERIT, 0);
    // Without this program's console, so that Ctrl+C does not end it.
    copy.emplace(ProcessStart{.program = GetExePath(),
                              .arguments = ArgumentsOf(options),
                              .flags = CREATE_NO_WINDOW,
                              .input = questions.readEnd.get(),
                              .output = answers.writeEnd.get(),
                              .endsWithOwner = true});
    input = std::move(questions.writeEnd);
    output = std::move(answers.readEnd);
}

Inquirer::~Inquirer() {
    input.reset();
    if (*copy) copy->Terminate();
    if (reader.joinable()) reader.join();
}

void Inquirer::Send(std::string_view question) {
    const std::string line = std::string(question) + "\n";
    DWORD written = 0;
    WriteFile(input.get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

std::wstring Inquirer::WhyNoAnswer() const {
    if (!*copy) return L"Rollout.exe cannot be started once more: " + SystemMessage(copy->Error());
    static_cast<void>(copy->WaitForEnd(longestEnd));
    const std::optional<std::uint32_t> code = copy->ExitCode();
    if (!code) return L"The library of the package does not answer.";
    return L"The library of the package has ended the program that asks it, with the code " +
           std::to_wstring(*code) + L".";
}

// The pipe breaks when the copy ends.
void Inquirer::ReadLines() {
    std::string text;
    std::array<char, 4096> buffer{};
    DWORD count = 0;
    while (text.size() < longestInquiry &&
           ReadFile(output.get(), buffer.data(), buffer.size(), &count, nullptr) != FALSE) {
        text.append(buffer.data(), count);
        const std::lock_guard guard(lock);
        for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n')) {
            lines.push_back(text.substr(0, end));
            text.erase(0, end + 1);
        }
        change.notify_all();
    }
    const std::lock_guard guard(lock);
    ended = true;
    change.notify_all();
}

std::optional<std::string> Inquirer::TakeLine(std::chrono::steady_clock::time_point end,
                                              const StopSignal* stop) {
    std::unique_lock guard(lock);
    const auto isOver = [&] { return ended || !lines.empty(); };
    while (
        !change.wait_until(guard, std::min(end, std::chrono::steady_clock::now() + signalInterval), isOver)) {
        const bool isStopped = stop != nullptr && stop->IsGiven();
        if (isStopped || std::chrono::steady_clock::now() >= end) return std::nullopt;
    }
    if (lines.empty()) return std::nullopt;
    std::string line = std::move(lines.front());
    lines.pop_front();
    return line;
}

}  // namespace rollout
