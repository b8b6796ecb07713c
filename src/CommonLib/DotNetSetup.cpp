#include "CommonLib/DotNetSetup.h"

#include <windows.h>

#include <algorithm>
#include <string_view>

#include "CommonLib/Logger.h"
#include "CommonLib/ProcessStart.h"
#include "CommonLib/ProcessWait.h"
#include "CommonLib/TextUtilities.h"
#include "framework/Handles.h"
#include "framework/SystemLibrary.h"

namespace {

constexpr std::wstring_view packageExtension = L".msi";

bool HasExtension(std::wstring_view path, std::wstring_view extension) {
    return path.size() >= extension.size() &&
           EqualsIgnoringCase(path.substr(path.size() - extension.size()), extension);
}

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

bool IsSetupProgram(const std::wstring& path) {
    return HasExtension(path, L".exe") || HasExtension(path, packageExtension);
}

std::uint32_t InstallDotNetRuntime(const std::wstring& setupPath) {
    const bool isPackage = HasExtension(setupPath, packageExtension);
    const std::wstring program = isPackage ? GetSystemFolder() + L"\\msiexec.exe" : setupPath;
    const std::wstring commandLine =
        isPackage ? L"msiexec.exe /i \"" + setupPath + L"\" /norestart" : L" /norestart ";
    Logger& logger = Logger::GetInstance();
    logger.WriteBasic(LogLevel::None, LogApplication::DotNetInstall, L"Installing .Net Framework");
    logger.WriteAdvanced(LogLevel::None, LogApplication::DotNetInstall, commandLine);

    const KernelHandle process = StartProcess(program, commandLine, CREATE_NO_WINDOW);
    const DWORD exitCode = process ? WaitForExit(process.get()) : std::max(GetLastError(), DWORD{1});
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
