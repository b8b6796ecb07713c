#include "tests/wizard/RolloutTest.h"

#include <tlhelp32.h>

#include <fstream>
#include <iostream>
#include <iterator>

#include "CommonLib/SystemText.h"

namespace {

namespace fs = std::filesystem;

constexpr wchar_t reportName[] = L"report.json";

std::string BytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

KernelHandle InheritableFile(const fs::path& path) {
    SECURITY_ATTRIBUTES inheritable{.nLength = sizeof(SECURITY_ATTRIBUTES), .bInheritHandle = TRUE};
    return KernelHandle(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    &inheritable, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

// Every report of the suite is kept for the script that compares them with the schema.
void KeepReport(const fs::path& report) {
    const std::wstring folder = ExpandEnvironment(L"%KESTRUNE_REPORTS%");
    if (folder.starts_with(L"%") || !fs::exists(report)) return;
    static int counter = 0;
    fs::create_directories(folder);
    fs::copy_file(report,
                  fs::path(folder) /
                      (std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++counter) + L".json"),
                  fs::copy_options::overwrite_existing);
}

}  // namespace

RolloutProcess::~RolloutProcess() {
    Kill();
}

void RolloutProcess::Start(const std::wstring& arguments, HANDLE token) {
    const KernelHandle file = InheritableFile(output);
    std::wstring commandLine = L"\"" + program.wstring() + L"\" " + arguments;
    STARTUPINFOW startup{.cb = sizeof(STARTUPINFOW), .dwFlags = STARTF_USESTDHANDLES};
    startup.hStdOutput = file.get();
    startup.hStdError = file.get();
    PROCESS_INFORMATION information{};
    const std::wstring folder = output.parent_path().wstring();
    const BOOL started = token == nullptr
                             ? CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                              folder.c_str(), &startup, &information)
                             : CreateProcessAsUserW(token, nullptr, commandLine.data(), nullptr, nullptr,
                                                    TRUE, 0, nullptr, folder.c_str(), &startup, &information);
    ASSERT_TRUE(started) << "error " << GetLastError();
    const KernelHandle thread(information.hThread);
    process.reset(information.hProcess);
}

bool RolloutProcess::IsRunning() const {
    return process && WaitForSingleObject(process.get(), 0) == WAIT_TIMEOUT;
}

std::uint32_t RolloutProcess::WaitForEnd() {
    EXPECT_TRUE(WaitUntil([this] { return !IsRunning(); })) << "Rollout.exe does not end: " << Output();
    Kill();
    DWORD code = 0;
    GetExitCodeProcess(process.get(), &code);
    return code;
}

// Keys reach only those who share a console, and the tests have none; so the process gets the thread that the
// system starts in it for such a key.
void RolloutProcess::Interrupt() const {
    const FARPROC routine = GetProcAddress(GetModuleHandleW(L"kernelbase.dll"), "CtrlRoutine");
    ASSERT_NE(routine, nullptr);
    const auto start = reinterpret_cast<LPTHREAD_START_ROUTINE>(reinterpret_cast<void*>(routine));
    auto* const signal = reinterpret_cast<void*>(static_cast<UINT_PTR>(CTRL_BREAK_EVENT));
    const KernelHandle thread(CreateRemoteThread(process.get(), nullptr, 0, start, signal, 0, nullptr));
    ASSERT_TRUE(thread) << "error " << GetLastError();
}

void RolloutProcess::Kill() {
    if (!IsRunning()) return;
    TerminateProcess(process.get(), 1);
    WaitForSingleObject(process.get(), INFINITE);
}

std::string RolloutProcess::Output() const {
    return BytesOf(output);
}

void RolloutTest::SetUp() {
    WizardTest::SetUp();
    fs::copy_file(BuildFolder() / L"Rollout.exe", tree.ProgramFolder() / L"Rollout.exe");
}

void RolloutTest::TearDown() {
    rollout.Kill();
    KillWizard();
    KeepReport(tree.Root() / reportName);
    WizardTest::TearDown();
    if (HasFailure()) std::cout << "Rollout.exe has printed:\n" << rollout.Output() << '\n';
}

std::uint32_t RolloutTest::RunRollout(const std::wstring& arguments) {
    StartRollout(arguments);
    return rollout.WaitForEnd();
}

void RolloutTest::StartRollout(const std::wstring& arguments) {
    rollout.Start(std::wstring(L"--report ") + reportName + L" " + arguments);
}

nlohmann::json RolloutTest::Report() const {
    const std::string text = BytesOf(tree.Root() / reportName);
    EXPECT_FALSE(text.empty()) << "there is no report: " << rollout.Output();
    return nlohmann::json::parse(text, nullptr, false);
}

std::map<std::string, std::string> RolloutTest::Outcomes() const {
    std::map<std::string, std::string> outcomes;
    const nlohmann::json report = Report();
    for (const nlohmann::json& package : report.at("packages")) {
        outcomes[package.at("product")] = package.at("outcome");
    }
    return outcomes;
}

bool RolloutTest::WaitForBasicMessage(const std::wstring& message) const {
    return WaitUntil([&] {
        const std::vector<LogRecord> log = BasicLog();
        return std::any_of(log.begin(), log.end(),
                           [&](const LogRecord& record) { return record.message == message; });
    });
}

bool RolloutTest::KillWizard() const {
    const FileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{.dwSize = sizeof(PROCESSENTRY32W)};
    bool isAny = false;
    for (BOOL more = Process32FirstW(snapshot.get(), &entry); more != FALSE;
         more = Process32NextW(snapshot.get(), &entry)) {
        if (std::wstring(entry.szExeFile) != L"Kestrune.exe") continue;
        const KernelHandle process(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, entry.th32ProcessID));
        if (!process) continue;
        isAny = TerminateProcess(process.get(), 1) != FALSE || isAny;
        WaitForSingleObject(process.get(), INFINITE);
    }
    return isAny;
}

TestPackage RolloutTest::Lasting(const std::wstring& path, const ScriptedCall& install) {
    return {.path = path, .keeps = true, .install = install};
}
