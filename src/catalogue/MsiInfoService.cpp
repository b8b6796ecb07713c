#include "catalogue/MsiInfoService.h"

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/SystemVersion.h"
#include "catalogue/PackageProperties.h"
#include "catalogue/PackageReader.h"

namespace {

// All packages of the folders, which are given from the root of the package tree.
std::vector<std::wstring> ListPackages(std::initializer_list<const wchar_t*> folders) {
    const std::wstring root = GetExeDirectory() + L"\\..\\..\\";
    std::vector<std::wstring> paths;
    for (const wchar_t* folder : folders) FindFiles(root + folder, paths, L"msi");
    return paths;
}

}  // namespace

void MsiInfoService::ScanApplications() {
    for (const std::wstring& path :
         ListPackages({L"Applications\\", L"Applications\\x86_x64\\", L"Applications\\x64\\"})) {
        MSI_APP record = ReadProperties(msi, localizer, path);
        record.isSelected = true;
        record.hasDependents = !record.dependents.empty();
        applications.Append(std::move(record));
    }
}

void MsiInfoService::ScanCommon() {
    for (const std::wstring& path : ListPackages({L"Common\\x86_x64\\", L"Common\\x64\\"})) {
        MSI_APP record = ReadProperties(msi, localizer, path);
        record.isOptional = true;
        applications.Append(std::move(record));
    }
}

void MsiInfoService::ScanOptional() {
    const std::wstring system = GetWindowsVersionName(GetWindowsVersionId());
    for (const std::wstring& path : ListPackages({L"Optional\\x86_x64\\", L"Optional\\x64\\"})) {
        MSI_APP record = ReadProperties(msi, localizer, path);
        record.isOptional = true;
        if (SupportsSystem(record.supportedOs, system)) applications.Append(std::move(record));
    }
}

std::uint32_t MsiInfoService::DoRun() {
    if (cancelled) return MsiCode::Success;
    buildDriverInfo();
    buildAppInfo();
    return MsiCode::Success;
}

std::uint32_t MsiInfoService::buildDriverInfo() {
    LogAdvanced(L"MsiInfoService::buildDriverInfo");
    drivers.Clear();
    drivers.PopulateDriverList(msi, settings, localizer);
    if (!cancelled) return MsiCode::Success;
    LogAdvanced(L"MsiInfoService cancelling buildDriverInfo");
    return MsiCode::UserCancelled;
}

std::uint32_t MsiInfoService::buildAppInfo() {
    LogAdvanced(L"MsiInfoService::buildAppInfo");
    applications.Clear();
    ScanApplications();
    ScanCommon();
    ScanOptional();
    if (!cancelled) return MsiCode::Success;
    LogAdvanced(L"MsiInfoService cancelling buildAppInfo");
    return MsiCode::UserCancelled;
}
