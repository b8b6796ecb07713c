#include "catalogue/MsiInfoService.h"

#include "CommonLib/Files.h"
#include "CommonLib/Log.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/SystemVersion.h"
#include "catalogue/ApplicationScan.h"

namespace {

std::vector<std::wstring> ListPackages(const std::wstring& folder, const std::wstring& fileNames) {
    std::vector<std::wstring> paths;
    FindFiles(GetExeDirectory() + L"\\..\\..\\" + folder, paths, L"msi", fileNames);
    return paths;
}

}  // namespace

TargetSystem ThisSystem() {
    return {.name = GetWindowsVersionName(GetWindowsVersionId()),
            .isWindows8OrLater = IsWindowsVersionOrGreater(WindowsVersion::Windows8)};
}

MsiInfoService::MsiInfoService(IMsiInterface& gateway, const InstallSettings& store, const Localizer& texts,
                               AppCatalogue& appCatalogue, DriverInfo& driverCatalogue)
    : source{.msi = gateway,
             .settings = store,
             .localizer = texts,
             .system = ThisSystem(),
             .listPackages = &ListPackages},
      applications(appCatalogue),
      drivers(driverCatalogue) {}

std::uint32_t MsiInfoService::DoRun() {
    if (cancelled) return MsiCode::Success;
    buildDriverInfo();
    buildAppInfo();
    return MsiCode::Success;
}

std::uint32_t MsiInfoService::buildDriverInfo() {
    LogAdvanced(L"MsiInfoService::buildDriverInfo");
    drivers.Clear();
    drivers.PopulateDriverList(source);
    if (!cancelled) return MsiCode::Success;
    LogAdvanced(L"MsiInfoService cancelling buildDriverInfo");
    return MsiCode::UserCancelled;
}

std::uint32_t MsiInfoService::buildAppInfo() {
    LogAdvanced(L"MsiInfoService::buildAppInfo");
    applications.Clear();
    ScanApplications(source, applications);
    if (!cancelled) return MsiCode::Success;
    LogAdvanced(L"MsiInfoService cancelling buildAppInfo");
    return MsiCode::UserCancelled;
}
