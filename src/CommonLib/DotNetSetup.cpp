#include "CommonLib/DotNetSetup.h"

#include <windows.h>

#include "CommonLib/Logger.h"
#include "CommonLib/ProcessStart.h"
#include "CommonLib/ProcessWait.h"
#include "CommonLib/TextUtilities.h"
#include "framework/Handles.h"

namespace {

DWORD WaitForExit(HANDLE process) {
    WaitForProcess(process, {WM_PAINT});
    DWORD exitCode = 0;
    GetExitCodeProcess(process, &exitCode);
    return exitCode;
}

void WriteOutcome(DWORD exitCode) {
    Logger& logger = Logger::GetInstance();
    logger.WriteBasic(
        LogLevel::None, LogApplication::DotNetInstall,
        exitCode == 0 ? L"Installing .Net Framework succeeded" : L"Installing .Net Framework failed");
    logger.WriteAdvanced(LogLevel::None, LogApplication::DotNetInstall,
                         L"Installing .Net Framework exitCode = " + ToDecimalString(exitCode));
}

}  // namespace

std::uint32_t InstallDotNetRuntime(const std::wstring& setupPath) {
    const std::wstring commandLine = L" /norestart ";
    Logger& logger = Logger::GetInstance();
    logger.WriteBasic(LogLevel::None, LogApplication::DotNetInstall, L"Installing .Net Framework");
    logger.WriteAdvanced(LogLevel::None, LogApplication::DotNetInstall, commandLine);

    const KernelHandle process = StartProcess(setupPath.c_str(), commandLine, CREATE_NO_WINDOW);
    if (!process) return 0;
    const DWORD exitCode = WaitForExit(process.get());
    WriteOutcome(exitCode);
    return exitCode;
}

std::uint32_t IsDotNetInstalled(const std::wstring& registryKey) {
    RegistryKey key;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, registryKey.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS)
        return 0;
    DWORD value = 0;
    DWORD size = sizeof(value);
    RegQueryValueExW(key.get(), L"Install", nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size);
    return value;
}
