#include "tests/windows/world/LogWorld.h"

#include <windows.h>

#include <filesystem>
#include <iterator>
#include <system_error>

#include "CommonLib/Logger.h"
#include "CommonLib/SystemText.h"

namespace {

std::wstring VendorKey(const std::wstring& vendor) {
    return L"SOFTWARE\\" + vendor;
}

std::wstring SwitchKey(const std::wstring& vendor) {
    return VendorKey(vendor) + L"\\Installer\\Logger";
}

std::vector<std::wstring> MessagesOf(const std::vector<LogRecord>& log) {
    std::vector<std::wstring> messages;
    for (const LogRecord& record : log) messages.push_back(record.message);
    return messages;
}

}  // namespace

LogWorld::LogWorld() : vendor(L"Kestrune Test " + std::to_wstring(GetCurrentProcessId())) {
    RemoveTraces();
    Logger::DestroyInstance();
    Logger::GetInstance().SetVendor(vendor);
    SwitchAdvancedLog(1);
}

LogWorld::~LogWorld() {
    Logger::DestroyInstance();
    RemoveTraces();
}

void LogWorld::RemoveTraces() const {
    RegDeleteTreeW(HKEY_CURRENT_USER, VendorKey(vendor).c_str());
    std::error_code ignored;
    std::filesystem::remove_all(LogFolder(), ignored);
}

void LogWorld::UseVendor(const std::wstring& name) {
    RemoveTraces();
    vendor = name;
    RemoveTraces();
    SwitchAdvancedLog(1);
}

void LogWorld::SwitchAdvancedLog(unsigned value) const {
    const DWORD number = value;
    RegSetKeyValueW(HKEY_CURRENT_USER, SwitchKey(vendor).c_str(), L"StartLog", REG_DWORD, &number,
                    sizeof(number));
}

void LogWorld::RemoveSwitch() const {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, SwitchKey(vendor).c_str(), L"StartLog");
}

std::wstring LogWorld::LogFolder() const {
    return ExpandEnvironment(L"%ALLUSERSPROFILE%\\") + vendor + L" Install Logs\\";
}

std::vector<LogRecord> LogWorld::BasicLog() const {
    return ReadLog(LogFolder() + L"Basic.log", LogForm::Basic);
}

std::vector<LogRecord> LogWorld::AdvancedLog() const {
    return ReadLog(LogFolder() + L"Advanced.log", LogForm::Advanced);
}

std::vector<std::wstring> LogWorld::BasicMessages() const {
    return MessagesOf(BasicLog());
}

std::vector<std::wstring> LogWorld::AdvancedMessages() const {
    return MessagesOf(AdvancedLog());
}

testing::Matcher<const LogRecord&> Record(const std::wstring& level, const std::wstring& message) {
    return testing::AllOf(testing::Field(&LogRecord::level, level),
                          testing::Field(&LogRecord::message, message));
}
