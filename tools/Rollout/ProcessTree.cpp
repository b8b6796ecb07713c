#include "tools/Rollout/ProcessTree.h"

namespace rollout {
namespace {

constexpr UINT terminatedCode = 1067;
constexpr DWORD longestEndInMilliseconds = 10000;

}  // namespace

ProcessTree::ProcessTree(const ProcessStart& start) {
    MakeJob(start.endsWithOwner);
    std::wstring commandLine = L"\"" + start.program + L"\" " + start.arguments;
    const bool redirects = start.output != nullptr;
    STARTUPINFOW startup{.cb = sizeof(STARTUPINFOW)};
    if (redirects) {
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = start.input;
        startup.hStdOutput = start.output;
    }
    PROCESS_INFORMATION information{};
    if (CreateProcessW(start.program.c_str(), commandLine.data(), nullptr, nullptr, redirects ? TRUE : FALSE,
                       start.flags | CREATE_SUSPENDED, nullptr, nullptr, &startup, &information) == FALSE) {
        error = GetLastError();
        return;
    }
    const KernelHandle thread(information.hThread);
    process.reset(information.hProcess);
    id = information.dwProcessId;
    // A system that knows no job within a job refuses this where a management engine has put this program
    // into one; the process alone can be ended then.
    if (AssignProcessToJobObject(job.get(), process.get()) == FALSE) job.reset();
    ResumeThread(thread.get());
}

void ProcessTree::MakeJob(bool endsWithOwner) {
    job.reset(CreateJobObjectW(nullptr, nullptr));
    if (!endsWithOwner) return;
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof(limits));
}

bool ProcessTree::WaitForEnd(std::chrono::milliseconds limit) const {
    return WaitForSingleObject(process.get(), static_cast<DWORD>(limit.count())) == WAIT_OBJECT_0;
}

std::optional<std::uint32_t> ProcessTree::ExitCode() const {
    DWORD code = 0;
    if (!WaitForEnd(std::chrono::milliseconds(0)) || GetExitCodeProcess(process.get(), &code) == FALSE) {
        return std::nullopt;
    }
    return code;
}

void ProcessTree::Terminate() {
    if (job) TerminateJobObject(job.get(), terminatedCode);
    // Also where there is no job, or it did not hold the process.
    TerminateProcess(process.get(), terminatedCode);
    WaitForSingleObject(process.get(), longestEndInMilliseconds);
}

}  // namespace rollout
