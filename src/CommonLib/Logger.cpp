#include "CommonLib/Logger.h"

#include <windows.h>

#include <direct.h>

#include <array>
#include <stdexcept>
#include <string_view>
#include <type_traits>
#include <utility>

#include "CommonLib/LogRecord.h"
#include "CommonLib/SystemText.h"
#include "CommonLib/Vendor.h"
#include "CommonLib/Win32Exception.h"
#include "framework/Handles.h"

namespace {

Singleton<Logger> sharedLogger;

LogTime LocalTime() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {.year = now.wYear,
            .month = now.wMonth,
            .day = now.wDay,
            .hour = now.wHour,
            .minute = now.wMinute,
            .second = now.wSecond};
}

bool IsOpenAndNoLink(const FileHandle& opened) {
    FILE_BASIC_INFO information{};
    return opened &&
           GetFileInformationByHandleEx(opened.get(), FileBasicInfo, &information, sizeof(information)) !=
               FALSE &&
           (information.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
}

FileHandle OpenFolder(const std::wstring& folder) {
    return FileHandle(CreateFileW(folder.c_str(), FILE_LIST_DIRECTORY, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT,
                                  nullptr));
}

// Opens the folder so that nobody exchanges it as long as it is open, and makes it where it is missing. Not
// owning where a link stands in its place: every user may put one there, and the record would be written
// where it leads to.
FileHandle HoldFolder(const std::wstring& folder) {
    FileHandle held = OpenFolder(folder);
    if (!held && _wmkdir(folder.c_str()) == 0) held = OpenFolder(folder);
    return IsOpenAndNoLink(held) ? std::move(held) : FileHandle();
}

// What ends a record that a power cut or a full disk has cut at that end of the file, so that the next one
// begins a line of its own; empty where none was. A sign of which one byte is there gets its other one.
std::string EndOfCutRecord(HANDLE file, LARGE_INTEGER end) {
    constexpr std::string_view lineEnd("\r\0\n\0", 4);
    std::array<char, lineEnd.size()> last{};
    DWORD read = 0;
    if (end.LowPart == 0) return {};
    if (end.LowPart >= last.size()) {
        LONG highPart = 0;
        SetFilePointer(file, static_cast<LONG>(end.LowPart - last.size()), &highPart, FILE_BEGIN);
        ReadFile(file, last.data(), static_cast<DWORD>(last.size()), &read, nullptr);
    }
    if (std::string_view(last.data(), read) == lineEnd) return {};
    return std::string(end.LowPart % sizeof(wchar_t), '\0').append(lineEnd);
}

}  // namespace

Logger& Logger::GetInstance() {
    return sharedLogger.Get();
}

void Logger::DestroyInstance() {
    sharedLogger.Destroy();
}

Logger::Logger() {
    try {
        lock = std::make_unique<InterProcessLock>(L"ZVINSTALLLOG");
    } catch (const Win32Exception&) {
        // Without the lock no record can be written safely, and none is.
        lock.reset();
    }
}

void Logger::SetVendor(const std::wstring& name) {
    const std::lock_guard guard(textLock);
    vendor = name.empty() ? unnamedVendor : name;
}

void Logger::WriteBasic(std::wstring_view level, std::wstring_view application, std::wstring_view message) {
    try {
        AppendToFile(basicName, FormatBasicRecord(level, LocalTime(), message));
        WriteAdvanced(level, application, message);
    } catch (const Win32Exception&) {
        return;
    } catch (const std::runtime_error&) {
        return;
    }
}

void Logger::WriteAdvanced(std::wstring_view level, std::wstring_view application,
                           std::wstring_view message) {
    try {
        if (!IsAdvancedEnabled()) return;
        const LogOrigin origin{.processId = GetCurrentProcessId(), .threadId = GetCurrentThreadId()};
        AppendToFile(advancedName, FormatAdvancedRecord(level, LocalTime(), origin, application, message));
    } catch (const Win32Exception&) {
        return;
    } catch (const std::runtime_error&) {
        return;
    }
}

std::wstring Logger::FolderPath() {
    std::wstring folder = ExpandEnvironment(L"%ALLUSERSPROFILE%\\");
    const std::lock_guard guard(textLock);
    if (vendor.empty()) vendor = unnamedVendor;
    return folder.append(vendor).append(L" Install Logs");
}

std::wstring Logger::GetLogFolder() {
    const std::wstring folder = FolderPath();
    // An existing folder is the normal case, and a missing one shows when the record cannot be written.
    static_cast<void>(_wmkdir(folder.c_str()));
    return folder + L"\\";
}

// Built from the vendor as it stands at the first question, and then kept.
std::wstring Logger::RegistryKeyPath() {
    const std::lock_guard guard(textLock);
    if (registryKey.empty()) registryKey = L"SOFTWARE\\" + vendor + L"\\Installer\\Logger";
    return registryKey;
}

bool Logger::IsAdvancedEnabled() {
    RegistryKey key;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, RegistryKeyPath().c_str(), 0, KEY_READ, key.put()) !=
        ERROR_SUCCESS) {
        return false;
    }
    DWORD value = 0;
    DWORD size = sizeof(value);
    return RegQueryValueExW(key.get(), L"StartLog", nullptr, nullptr, reinterpret_cast<BYTE*>(&value),
                            &size) == ERROR_SUCCESS &&
           value != 0;
}

void Logger::AppendToFile(const wchar_t* name, const std::wstring& text) {
    if (!lock) throw Win32Exception(L"InterProcessLock has no name", 0, L"CommonLib/InterProcessLock");
    const InterProcessLockGuard guard(*lock);
    const std::wstring folder = FolderPath();
    const FileHandle held = HoldFolder(folder);
    if (!held) return;
    const FileHandle file(CreateFileW((folder + L"\\" + name).c_str(), GENERIC_READ | GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (!IsOpenAndNoLink(file)) return;
    FILE_STANDARD_INFO information{};
    GetFileInformationByHandleEx(file.get(), FileStandardInfo, &information, sizeof(information));
    // A file of a second name is somebody else's as well.
    if (information.NumberOfLinks != 1) return;
    std::string bytes = EndOfCutRecord(file.get(), information.EndOfFile);
    bytes.append(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
    // By design: the low 32 bits of the size alone place the record.
    LONG highPart = 0;
    SetFilePointer(file.get(), static_cast<LONG>(information.EndOfFile.LowPart), &highPart, FILE_BEGIN);
    DWORD written = 0;
    WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

void LogBasic(std::wstring_view message, std::wstring_view level) {
    Logger::GetInstance().WriteBasic(level, LogApplication::Kestrune, message);
}

void LogAdvanced(std::wstring_view message, std::wstring_view level) {
    Logger::GetInstance().WriteAdvanced(level, LogApplication::Kestrune, message);
}
