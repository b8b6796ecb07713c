#include "tests/windows/world/FakeMsi.h"

#include <algorithm>

#include "CommonLib/MsiCodes.h"
#include "CommonLib/TextUtilities.h"

namespace {

std::wstring NameOf(const std::wstring& path) {
    return std::wstring(FileNameOf(path));
}

}  // namespace

void FakeMsi::Keep(const std::wstring& call) {
    const std::lock_guard guard(lock);
    calls.push_back(call);
}

const FakePackage* FakeMsi::Find(const std::wstring& path) const {
    const auto found = packages.find(NameOf(path));
    return found == packages.end() ? nullptr : &found->second;
}

std::uint32_t FakeMsi::InstallApp(std::wstring packagePath, InstallProgressCallback,
                                  std::wstring commandDocument) {
    Keep(L"install " + NameOf(packagePath));
    {
        const std::lock_guard guard(lock);
        commands[NameOf(packagePath)] = commandDocument;
    }
    const FakePackage* const package = Find(packagePath);
    if (package == nullptr) return MsiCode::Success;
    if (package->duringInstall) package->duringInstall();
    return package->installCode;
}

std::uint32_t FakeMsi::UninstallApp(std::wstring packagePath, InstallProgressCallback) {
    Keep(L"uninstall " + NameOf(packagePath));
    const FakePackage* const package = Find(packagePath);
    return package == nullptr ? MsiCode::Success : package->uninstallCode;
}

void FakeMsi::Cancel() {
    Keep(L"cancel");
}

std::uint32_t FakeMsi::GetPropertyValue(std::wstring packagePath, std::wstring property,
                                        std::wstring language, std::wstring& value) {
    {
        const std::lock_guard guard(lock);
        languages.push_back(language);
    }
    const FakePackage* const package = Find(packagePath);
    if (package == nullptr) return MsiCode::PropertyNotFound;
    const auto found = package->properties.find(property);
    if (found == package->properties.end()) return MsiCode::PropertyNotFound;
    value = found->second;
    return MsiCode::Success;
}

bool FakeMsi::IsAppInstalled(std::wstring packagePath, bool& upToDate, bool& upgradable, bool& minorUpgrade) {
    {
        const std::lock_guard guard(lock);
        ++stateQuestions;
    }
    const FakePackage* const package = Find(packagePath);
    if (package == nullptr) return false;
    upToDate = package->upToDate;
    upgradable = package->upgradable;
    minorUpgrade = package->minorUpgrade;
    return package->installed;
}

std::vector<std::wstring> FakeMsi::Calls() const {
    const std::lock_guard guard(lock);
    return calls;
}

std::wstring FakeMsi::CommandOf(const std::wstring& name) const {
    const std::lock_guard guard(lock);
    const auto found = commands.find(name);
    return found == commands.end() ? std::wstring() : found->second;
}

std::vector<std::wstring> FakeMsi::Languages() const {
    const std::lock_guard guard(lock);
    return languages;
}

std::size_t FakeMsi::StateQuestions() const {
    const std::lock_guard guard(lock);
    return stateQuestions;
}
