#include "printer/MSIExtractService.h"

#include <windows.h>

#include <shellapi.h>

#include <utility>

#include "printer/ConfigTool.h"

MSIExtractService::MSIExtractService(const AppCatalogue& catalogue, std::wstring packagePath)
    : applications(catalogue), msiPath(std::move(packagePath)) {}

std::wstring MSIExtractService::PackageOfType(std::wstring_view appType) const {
    const auto record = applications.FirstOfType(appType);
    return record ? record->msiPath : std::wstring();
}

std::wstring MSIExtractService::MakeParameters() {
    const ConfigToolKind& tool = msiPath.empty() ? ConfigToolFor(driverId) : v4ConfigTool;
    std::wstring package = std::exchange(msiPath, {});
    if (package.empty()) package = PackageOfType(tool.appType);
    return UnpackParameters(package, tool);
}

std::uint32_t MSIExtractService::DoRun() {
    const HINSTANCE result =
        ShellExecuteW(nullptr, L"runas", L"cmd.exe", MakeParameters().c_str(), nullptr, SW_HIDE);
    constexpr INT_PTR firstSuccess = 32;
    if (reinterpret_cast<INT_PTR>(result) >= firstSuccess) launched = true;
    return 1;
}
