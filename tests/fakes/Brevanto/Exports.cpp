// The eight exports. Where their contract leaves a choice, the one that asks most of the caller is taken.

#include <algorithm>
#include <string>

#include "tests/fakes/Brevanto/Library.h"
#include "tests/fakes/LibraryFolder.h"

namespace {

constexpr std::uint32_t packageOpenFailed = 1619;
constexpr wchar_t garbage = 0xCDCD;
// Any value but 0 says yes.
constexpr std::uint8_t yes = 2;

ScriptedLibrary& Library() {
    return ScriptedLibrary::GetInstance();
}

std::uint8_t Byte(bool flag) {
    return flag ? yes : 0;
}

}  // namespace

void MsiInitialize() {
    Library().Record({L"MsiInitialize"});
}

void MsiUninitialize() {
    Library().Record({L"MsiUninitialize"});
}

void MsiEnableInstallLog(const wchar_t* logName, std::uint64_t logNameLength) {
    Library().Record({L"MsiEnableInstallLog", Field(L"name", logName), Field(L"length", logNameLength)});
}

std::uint32_t MsiInstallApp(const wchar_t* packagePath, std::uint32_t packagePathLength,
                            InstallProgressCallback callback, const wchar_t* commandDocument,
                            std::uint32_t commandDocumentLength) {
    Library().Record({L"MsiInstallApp", Field(L"path", packagePath), Field(L"pathLength", packagePathLength),
                      Field(L"command", commandDocument), Field(L"commandLength", commandDocumentLength)});
    const ScriptedPackage* const package = Library().Find(packagePath);
    if (package == nullptr) return packageOpenFailed;
    const std::uint32_t code = Library().Run(package->install, callback);
    Library().Keep(packagePath, code, true);
    return code;
}

std::uint32_t MsiUninstallApp(const wchar_t* packagePath, std::uint32_t packagePathLength,
                              InstallProgressCallback callback) {
    Library().Record(
        {L"MsiUninstallApp", Field(L"path", packagePath), Field(L"pathLength", packagePathLength)});
    const ScriptedPackage* const package = Library().Find(packagePath);
    if (package == nullptr) return packageOpenFailed;
    const std::uint32_t code = Library().Run(package->uninstall, callback);
    Library().Keep(packagePath, code, false);
    return code;
}

void MsiCancel() {
    Library().Record({L"MsiCancel"});
    Library().Cancel();
}

std::uint32_t MsiGetProperties(const wchar_t* packagePath, const wchar_t* language, wchar_t* buffer,
                               std::uint32_t capacity, std::uint32_t* neededLength) {
    Library().Record({L"MsiGetProperties", Field(L"path", packagePath), Field(L"language", language),
                      Field(L"capacity", capacity)});
    const ScriptedPackage* const package = Library().Find(packagePath);
    if (package == nullptr) {
        *neededLength = 0;
        return packageOpenFailed;
    }
    if (package->propertiesLength) {
        *neededLength = *package->propertiesLength;
        return bufferTooSmall;
    }
    const std::wstring& document = package->properties;
    *neededLength = static_cast<std::uint32_t>(document.size());
    // The terminator wants room too, and a buffer that is too small stays untouched.
    if (capacity < document.size() + 1) return bufferTooSmall;
    std::fill(std::copy(document.begin(), document.end(), buffer), buffer + capacity, garbage);
    buffer[document.size()] = L'\0';
    return package->propertiesCode;
}

std::uint8_t MsiIsAppInstalledByLang(const wchar_t* packagePath, std::uint32_t packagePathLength,
                                     std::uint8_t* upToDate, std::uint8_t* upgradable,
                                     std::uint8_t* minorUpgrade, const wchar_t* language) {
    Library().Record({L"MsiIsAppInstalledByLang", Field(L"path", packagePath),
                      Field(L"pathLength", packagePathLength), Field(L"language", language),
                      Field(L"upToDate", *upToDate), Field(L"upgradable", *upgradable),
                      Field(L"minorUpgrade", *minorUpgrade)});
    const ScriptedState state = Library().NextState(packagePath);
    *upToDate = Byte(state.upToDate);
    *upgradable = Byte(state.upgradable);
    *minorUpgrade = Byte(state.minorUpgrade);
    return Byte(state.installed);
}
