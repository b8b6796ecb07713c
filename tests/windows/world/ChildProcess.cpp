#include "tests/windows/world/ChildProcess.h"

#include <stdexcept>

#include "CommonLib/Files.h"

namespace {

constexpr DWORD patienceInMilliseconds = 60000;

void Require(BOOL succeeded, const char* what) {
    if (succeeded == FALSE) throw std::runtime_error(what + (" " + std::to_string(GetLastError())));
}

// The token of this process, or one in which the Administrators group counts for nothing any more.
KernelHandle TokenFor(ChildProcess::Rights rights) {
    KernelHandle own;
    Require(OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, own.put()), "OpenProcessToken");
    if (rights == ChildProcess::Rights::Own) return own;
    SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
    Sid administrators;
    Require(AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS, 0,
                                     0, 0, 0, 0, 0, administrators.put()),
            "AllocateAndInitializeSid");
    SID_AND_ATTRIBUTES disabled{.Sid = administrators.get(), .Attributes = 0};
    KernelHandle restricted;
    Require(CreateRestrictedToken(own.get(), 0, 1, &disabled, 0, nullptr, 0, nullptr, restricted.put()),
            "CreateRestrictedToken");
    return restricted;
}

}  // namespace

ChildProcess::ChildProcess(const std::wstring& program, const std::wstring& arguments, Rights rights) {
    SECURITY_ATTRIBUTES inherited{
        .nLength = sizeof(SECURITY_ATTRIBUTES), .lpSecurityDescriptor = nullptr, .bInheritHandle = TRUE};
    KernelHandle input;
    Require(CreatePipe(output.put(), input.put(), &inherited, 0), "CreatePipe");
    SetHandleInformation(output.get(), HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW startupInfo{.cb = sizeof(STARTUPINFOW)};
    startupInfo.dwFlags = STARTF_USESTDHANDLES;
    startupInfo.hStdOutput = input.get();
    startupInfo.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started{};
    std::wstring line = L"\"" + program + L"\" " + arguments;
    Require(CreateProcessAsUserW(TokenFor(rights).get(), nullptr, line.data(), nullptr, nullptr, TRUE, 0,
                                 nullptr, nullptr, &startupInfo, &started),
            "CreateProcessAsUserW");
    process.reset(started.hProcess);
    const KernelHandle thread(started.hThread);
}

ChildProcess::~ChildProcess() {
    Kill();
}

std::optional<std::string> ChildProcess::ReadLine() {
    for (;;) {
        const std::size_t end = pending.find('\n');
        if (end != std::string::npos) {
            std::string line = pending.substr(0, end);
            pending.erase(0, end + 1);
            std::erase(line, '\r');
            return line;
        }
        char buffer[512];
        DWORD read = 0;
        if (ReadFile(output.get(), buffer, sizeof(buffer), &read, nullptr) == FALSE || read == 0) return {};
        pending.append(buffer, read);
    }
}

std::optional<DWORD> ChildProcess::WaitForEnd() {
    DWORD code = 0;
    if (WaitForSingleObject(process.get(), patienceInMilliseconds) != WAIT_OBJECT_0) return {};
    if (GetExitCodeProcess(process.get(), &code) == FALSE) return {};
    return code;
}

void ChildProcess::Kill() {
    if (WaitForSingleObject(process.get(), 0) != WAIT_TIMEOUT) return;
    TerminateProcess(process.get(), 1);
    WaitForSingleObject(process.get(), patienceInMilliseconds);
}

std::wstring CompanionPath() {
    return GetExeDirectory() + L"\\Companion.exe";
}

std::optional<DWORD> RunCompanion(const std::wstring& arguments, ChildProcess::Rights rights) {
    return ChildProcess(CompanionPath(), arguments, rights).WaitForEnd();
}
