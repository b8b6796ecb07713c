#include "tools/PackageCheck/PlannedInstaller.h"

#include <algorithm>

#include "CommonLib/MsiCodes.h"
#include "CommonLib/TextUtilities.h"
#include "CommonLib/Utf8.h"
#include "catalogue/PropertyNames.h"

namespace packagecheck {

namespace {

std::wstring WindowsPath(const std::string& path) {
    std::wstring text = FromUtf8(path);
    std::ranges::replace(text, L'/', L'\\');
    return text;
}

// NTFS keeps the entries of a folder by their names in capitals.
std::wstring InCapitals(std::wstring name) {
    std::ranges::transform(name, name.begin(), [](wchar_t letter) {
        return letter >= L'a' && letter <= L'z' ? static_cast<wchar_t>(letter - L'a' + L'A') : letter;
    });
    return name;
}

}  // namespace

PlannedInstaller::PlannedInstaller(const Package& packageTree, const InstalledStates& installedStates)
    : package(packageTree), states(installedStates) {
    for (const PackageFile& file : package.Packages()) byPath.emplace(WindowsPath(file.path), &file);
}

std::wstring PlannedInstaller::PathOf(const PackageFile& file) {
    return WindowsPath(file.path);
}

const PackageFile* PlannedInstaller::Find(const std::wstring& path) const {
    const auto found = byPath.find(path);
    return found == byPath.end() ? nullptr : found->second;
}

std::vector<std::wstring> PlannedInstaller::List(const std::wstring& folder,
                                                 const std::wstring& fileNames) const {
    std::string name = ToUtf8(folder.substr(0, folder.find_last_not_of(L'\\') + 1));
    std::ranges::replace(name, '\\', '/');
    std::vector<std::wstring> paths;
    for (const TreeFile* file : package.Files().In(name, ".msi")) {
        std::wstring path = WindowsPath(file->path);
        if (fileNames.empty() || fileNames.find(::FileNameOf(path)) != std::wstring::npos)
            paths.push_back(std::move(path));
    }
    std::ranges::sort(paths, {}, &InCapitals);
    return paths;
}

std::uint32_t PlannedInstaller::InstallApp(std::wstring packagePath, InstallProgressCallback, std::wstring) {
    if (const PackageFile* const file = Find(packagePath)) {
        if (const std::wstring& code = file->PropertyOf(L"ProductCode"); !code.empty())
            installed.insert(code);
    }
    installed.insert(std::move(packagePath));
    return MsiCode::Success;
}

std::uint32_t PlannedInstaller::UninstallApp(std::wstring, InstallProgressCallback) {
    return MsiCode::NotSupported;
}

// A property for one language, such as ProductName.1031, counts before the one for all.
std::uint32_t PlannedInstaller::GetPropertyValue(std::wstring packagePath, std::wstring property,
                                                 std::wstring language, std::wstring& value) {
    const PackageFile* const file = Find(packagePath);
    if (file == nullptr || !file->contents) return MsiCode::PropertyNotFound;
    const auto& properties = file->contents->properties;
    auto found = properties.find(property + L"." + language);
    if (found == properties.end()) found = properties.find(property);
    if (found == properties.end()) return MsiCode::PropertyNotFound;
    value = found->second;
    return MsiCode::Success;
}

bool PlannedInstaller::IsAppInstalled(std::wstring packagePath, bool& upToDate, bool& upgradable,
                                      bool& minorUpgrade) {
    upToDate = upgradable = minorUpgrade = false;
    const PackageFile* const file = Find(packagePath);
    if (file == nullptr) return false;
    InstalledState state = states.StateOf(file->path, ToUtf8(file->PropertyOf(Property::ProductName)));
    if (installed.contains(packagePath) || installed.contains(file->PropertyOf(L"ProductCode")))
        state = InstalledState::UpToDate;
    upToDate = state == InstalledState::UpToDate;
    minorUpgrade = state == InstalledState::MinorUpgrade;
    upgradable = state == InstalledState::Upgradable || minorUpgrade;
    return state != InstalledState::NotInstalled;
}

}  // namespace packagecheck
