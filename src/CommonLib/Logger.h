// The two logs of the installer, shared by all users and processes of the machine.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "CommonLib/InterProcessLock.h"
#include "CommonLib/Log.h"
#include "CommonLib/Singleton.h"

namespace LogApplication {
inline constexpr std::wstring_view Kestrune = L"Kestrune";
inline constexpr std::wstring_view DotNetInstall = L"DotNetInstall";
}  // namespace LogApplication

// Any thread may write. A record that cannot be written is lost without a report: logging never stops a run.
class Logger {
public:
    static Logger& GetInstance();
    static void DestroyInstance();

    // Names the log folder and the registry key of the switch; an empty name stands for "Printer".
    void SetVendor(const std::wstring& name);

    // Appends a record to Basic.log, then does what WriteAdvanced does.
    void WriteBasic(std::wstring_view level, std::wstring_view application, std::wstring_view message);
    // Appends a record to Advanced.log if the switch is on at this moment.
    void WriteAdvanced(std::wstring_view level, std::wstring_view application, std::wstring_view message);

    // Makes sure that the log folder exists; returns it with its closing backslash.
    std::wstring GetLogFolder();
    std::wstring GetBasicLogPath() { return GetLogFolder() + basicName; }
    std::wstring GetAdvancedLogPath() { return GetLogFolder() + advancedName; }

    // The user's switch, read anew at each call.
    bool IsAdvancedEnabled();

private:
    friend class Singleton<Logger>;
    Logger();

    static constexpr const wchar_t* basicName = L"Basic.log";
    static constexpr const wchar_t* advancedName = L"Advanced.log";

    void AppendToFile(const wchar_t* name, const std::wstring& text);
    // Without its closing backslash.
    std::wstring FolderPath();
    std::wstring RegistryKeyPath();

    // Guards the two texts below, not the files: those have the lock between processes.
    std::mutex textLock;
    std::wstring registryKey;
    std::wstring vendor;
    std::unique_ptr<InterProcessLock> lock;
};
