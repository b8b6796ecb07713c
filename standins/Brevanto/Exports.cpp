#include <windows.h>

#include <msi.h>

#include <algorithm>
#include <string>
#include <vector>

#include "CommonLib/PackageLibraries.h"
#include "standins/Brevanto/CommandLine.h"
#include "standins/Brevanto/InstallLog.h"
#include "standins/Brevanto/InstallRun.h"
#include "standins/Brevanto/InstalledState.h"
#include "standins/Brevanto/Package.h"

namespace {

using brevanto::Property;

// The one place where an exception ends: the callers are programs of any language.
template <typename Result, typename Work>
Result Shielded(Result onFailure, const Work& work) noexcept {
    try {
        return work();
    } catch (...) {
        return onFailure;
    }
}

std::wstring TextOf(const wchar_t* text, std::uint64_t length) {
    return text == nullptr ? std::wstring() : std::wstring(text, static_cast<std::size_t>(length));
}

void SetFlag(std::uint8_t* flag, bool value) {
    if (flag != nullptr) *flag = value ? 1 : 0;
}

std::uint32_t Install(const std::wstring& packagePath, InstallProgressCallback callback,
                      const std::wstring& commandDocument) {
    const std::wstring commandLine = brevanto::BuildCommandLine(commandDocument);
    return brevanto::RunInstaller(
        callback, [&] { return MsiInstallProductW(packagePath.c_str(), commandLine.c_str()); });
}

std::uint32_t Uninstall(const std::wstring& packagePath, InstallProgressCallback callback) {
    std::vector<Property> properties;
    const UINT code = brevanto::ReadPackage(packagePath, properties);
    if (code != ERROR_SUCCESS) return code;
    const auto state = brevanto::FindInstalledState(brevanto::IdentifyPackage(properties));
    if (!state.installed) return ERROR_UNKNOWN_PRODUCT;
    return brevanto::RunInstaller(callback, [&] {
        return MsiConfigureProductExW(state.productCode.c_str(), INSTALLLEVEL_DEFAULT, INSTALLSTATE_ABSENT,
                                      L"REBOOT=ReallySuppress");
    });
}

std::uint32_t CopyProperties(const std::wstring& packagePath, const std::wstring& language, wchar_t* buffer,
                             std::uint32_t capacity, std::uint32_t& neededLength) {
    std::vector<Property> properties;
    const UINT code = brevanto::ReadPackage(packagePath, properties);
    if (code != ERROR_SUCCESS) return code;
    const std::wstring document = brevanto::BuildPropertyDocument(properties, language);
    neededLength = static_cast<std::uint32_t>(document.size());
    if (buffer == nullptr || capacity <= document.size()) return ERROR_INSUFFICIENT_BUFFER;
    std::copy_n(document.c_str(), document.size() + 1, buffer);
    return ERROR_SUCCESS;
}

}  // namespace

extern "C" {

void MsiInitialize() {}

void MsiUninitialize() {}

void MsiEnableInstallLog(const wchar_t* logName, std::uint64_t logNameLength) {
    Shielded(false, [&] {
        brevanto::SetInstallLogName(TextOf(logName, logNameLength));
        return true;
    });
}

std::uint32_t MsiInstallApp(const wchar_t* packagePath, std::uint32_t packagePathLength,
                            InstallProgressCallback callback, const wchar_t* commandDocument,
                            std::uint32_t commandDocumentLength) {
    if (packagePath == nullptr) return ERROR_INVALID_PARAMETER;
    return Shielded<std::uint32_t>(ERROR_INSTALL_FAILURE, [&] {
        return Install(TextOf(packagePath, packagePathLength), callback,
                       TextOf(commandDocument, commandDocumentLength));
    });
}

std::uint32_t MsiUninstallApp(const wchar_t* packagePath, std::uint32_t packagePathLength,
                              InstallProgressCallback callback) {
    if (packagePath == nullptr) return ERROR_INVALID_PARAMETER;
    return Shielded<std::uint32_t>(
        ERROR_INSTALL_FAILURE, [&] { return Uninstall(TextOf(packagePath, packagePathLength), callback); });
}

void MsiCancel() {
    brevanto::CancelRun();
}

std::uint32_t MsiGetProperties(const wchar_t* packagePath, const wchar_t* language, wchar_t* buffer,
                               std::uint32_t capacity, std::uint32_t* neededLength) {
    std::uint32_t length = 0;
    const auto code = packagePath == nullptr
                          ? static_cast<std::uint32_t>(ERROR_INVALID_PARAMETER)
                          : Shielded<std::uint32_t>(ERROR_OUTOFMEMORY, [&] {
                                return CopyProperties(packagePath, language == nullptr ? L"" : language,
                                                      buffer, capacity, length);
                            });
    if (neededLength != nullptr) *neededLength = length;
    return code;
}

std::uint8_t MsiIsAppInstalledByLang(const wchar_t* packagePath, std::uint32_t packagePathLength,
                                     std::uint8_t* upToDate, std::uint8_t* upgradable,
                                     std::uint8_t* minorUpgrade, const wchar_t*) {
    const auto state = Shielded<brevanto::InstalledState>({}, [&] {
        std::vector<Property> properties;
        brevanto::ReadPackage(TextOf(packagePath, packagePathLength), properties);
        return brevanto::FindInstalledState(brevanto::IdentifyPackage(properties));
    });
    SetFlag(upToDate, state.upToDate);
    SetFlag(upgradable, state.upgradable);
    SetFlag(minorUpgrade, state.minorUpgrade);
    return state.installed ? 1 : 0;
}
}
