#include "printer/MSIExtractService.h"

#include <utility>

#include "CommonLib/ProcessStart.h"
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
    if (RunElevated(L"cmd.exe", MakeParameters())) launched = true;
    return 1;
}
