#include "ports/MSIExtractService.h"

#include <windows.h>

#include <shellapi.h>

#include <string_view>
#include <utility>

#include "catalogue/AppCatalogue.h"
#include "ports/ConfigTool.h"

namespace {

std::wstring PackageOfType(std::wstring_view appType) {
    const auto record = AppCatalogue::GetInstance().FirstOfType(appType);
    return record ? record->msiPath : std::wstring();
}

}  // namespace

MSIExtractService::MSIExtractService(std::wstring packagePath) : msiPath(std::move(packagePath)) {}

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
