#include "tests/wizard/WizardTest.h"

#include <algorithm>
#include <iostream>

#include "CommonLib/SystemText.h"
#include "settings/TagDocument.h"

namespace {

namespace fs = std::filesystem;

std::wstring SwitchKey(const std::wstring& vendor) {
    return L"SOFTWARE\\" + vendor;
}

// What every package has in its script although nothing was scripted.
bool IsScripted(const ScriptedCall& call) {
    return !call.steps.empty() || call.code != 0;
}

// What a failure is told with, the end of the log.
void PrintEnd(const char* name, const std::vector<LogRecord>& log) {
    constexpr std::size_t most = 60;
    std::cout << name << " ended with:\n";
    for (std::size_t index = log.size() - std::min(log.size(), most); index < log.size(); ++index) {
        PrintTo(log[index], &std::cout);
        std::cout << '\n';
    }
}

}  // namespace

void WizardTest::SetUp() {
    SwitchAdvancedLog(true);
}

void WizardTest::TearDown() {
    wizard.Kill();
    ExpectScriptUsed();
    if (HasFailure()) {
        PrintEnd("Basic.log", BasicLog());
        PrintEnd("Advanced.log", AdvancedLog());
    }
    RemoveTraces();
}

void WizardTest::RemoveTraces() const {
    std::error_code error;
    fs::remove_all(LogFolder(), error);
    fs::remove_all(TargetFolder(), error);
    RegDeleteTreeW(HKEY_CURRENT_USER, SwitchKey(vendor).c_str());
}

void WizardTest::ExpectVendor(const std::wstring& name) {
    RemoveTraces();
    vendor = name;
    RemoveTraces();
    SwitchAdvancedLog(true);
}

// An answer that was scripted and never asked for is a test that does not test what it says.
void WizardTest::ExpectScriptUsed() const {
    const std::vector<std::wstring> installs = Installs();
    const std::vector<std::wstring> removals = Removals();
    for (const TestPackage& package : tree.Packages()) {
        const std::wstring name = fs::path(package.path).filename().wstring();
        if (IsScripted(package.install)) {
            EXPECT_THAT(installs, testing::Contains(name));
        }
        if (IsScripted(package.uninstall)) {
            EXPECT_THAT(removals, testing::Contains(name));
        }
    }
    EXPECT_TRUE(Calls(L"failed").empty()) << "a step of the script failed";
}

void WizardTest::Run(const std::wstring& arguments) {
    wizard.Start(arguments);
    wizard.WaitForEnd();
}

void WizardTest::CloseOnFinishPage() {
    EXPECT_TRUE(WaitForMessage(L"Controller::Next, Moving from 7 to 8"));
    wizard.CloseMainWindow();
    wizard.WaitForEnd();
}

void WizardTest::SwitchAdvancedLog(bool on) const {
    const DWORD value = on ? 1 : 0;
    RegSetKeyValueW(HKEY_CURRENT_USER, (SwitchKey(vendor) + L"\\Installer\\Logger").c_str(), L"StartLog",
                    REG_DWORD, &value, sizeof(value));
}

std::wstring WizardTest::LogFolder() const {
    return ExpandEnvironment(L"%ALLUSERSPROFILE%\\") + vendor + L" Install Logs\\";
}

std::vector<LogRecord> WizardTest::BasicLog() const {
    return ReadLog(LogFolder() + L"Basic.log", LogForm::Basic);
}

std::vector<LogRecord> WizardTest::AdvancedLog() const {
    return ReadLog(LogFolder() + L"Advanced.log", LogForm::Advanced);
}

std::vector<std::wstring> WizardTest::BasicMessages(const std::wstring& level) const {
    std::vector<std::wstring> messages;
    for (const LogRecord& record : BasicLog()) {
        if (record.level == level) messages.push_back(record.message);
    }
    return messages;
}

bool WizardTest::WaitForMessage(const std::wstring& message) const {
    return WaitUntil([&] {
        const std::vector<LogRecord> log = AdvancedLog();
        return std::any_of(log.begin(), log.end(),
                           [&](const LogRecord& record) { return record.message == message; });
    });
}

std::vector<LibraryCall> WizardTest::Calls() const {
    return ReadCalls((tree.ProgramFolder() / L"Brevanto.record").wstring());
}

std::vector<LibraryCall> WizardTest::Calls(const std::wstring& name) const {
    std::vector<LibraryCall> calls = Calls();
    std::erase_if(calls, [&](const LibraryCall& call) { return call.name != name; });
    return calls;
}

std::vector<std::wstring> WizardTest::PackagesOf(const std::wstring& name) const {
    std::vector<std::wstring> packages;
    for (const LibraryCall& call : Calls(name)) packages.push_back(call.Package());
    return packages;
}

std::vector<std::wstring> WizardTest::Installs() const {
    return PackagesOf(L"MsiInstallApp");
}

std::vector<std::wstring> WizardTest::Removals() const {
    return PackagesOf(L"MsiUninstallApp");
}

std::wstring WizardTest::CommandOf(const std::wstring& package) const {
    for (const LibraryCall& call : Calls(L"MsiInstallApp")) {
        if (call.Package() == package) return call.Argument(L"command");
    }
    ADD_FAILURE() << "the package was not installed";
    return {};
}

// Another thread may write in between.
std::wstring WizardTest::FinalSettings() const {
    const std::vector<LogRecord> log = AdvancedLog();
    auto record = std::find_if(log.begin(), log.end(), [](const LogRecord& candidate) {
        return candidate.message == L"Final Install Settings Values";
    });
    if (record != log.end()) {
        record = std::find_if(record + 1, log.end(), [&](const LogRecord& candidate) {
            return candidate.threadId == record->threadId;
        });
    }
    if (record != log.end()) return record->message;
    ADD_FAILURE() << "the run did not begin";
    return {};
}

std::wstring WizardTest::FinalSetting(const std::wstring& tag) const {
    return TagDocument::ValueOf(FinalSettings(), tag);
}

std::wstring WizardTest::TargetFolder() const {
    return ExpandEnvironment(L"%ProgramFiles%\\") + vendor + L"\\";
}

std::wstring WizardTest::ProgramPathOf(const std::wstring& path) const {
    return tree.ProgramFolder().wstring() + L"\\..\\..\\" + path;
}

testing::Matcher<const std::vector<LogRecord>&> HasRecord(const std::wstring& level,
                                                          const std::wstring& message) {
    return testing::Contains(testing::AllOf(testing::Field(&LogRecord::level, level),
                                            testing::Field(&LogRecord::message, message)));
}

testing::Matcher<const std::vector<LogRecord>&> HasRecordWith(const std::wstring& level,
                                                              const std::wstring& part) {
    return testing::Contains(testing::AllOf(testing::Field(&LogRecord::level, level),
                                            testing::Field(&LogRecord::message, testing::HasSubstr(part))));
}
