#include "printer/DriverConfiguration.h"

#include <windows.h>

#include <algorithm>
#include <vector>

#include "CommonLib/Files.h"
#include "CommonLib/Vendor.h"
#include "printer/ConfigTool.h"
#include "printer/MSIExtractService.h"
#include "settings/TagNames.h"

namespace {

std::vector<const ConfigToolKind*> ToolsFor(const std::wstring& driver) {
    if (driver.empty()) return {&olderConfigTool, &v4ConfigTool};
    return {&ConfigToolFor(driver)};
}

}  // namespace

bool DriverConfiguration::IsInCatalogue(std::wstring_view appType) const {
    return applications.FirstOfType(appType).has_value();
}

bool DriverConfiguration::IsConfigToolAvailable(const std::wstring& driver) const {
    const auto tools = ToolsFor(driver);
    if (std::ranges::any_of(tools, [this](const auto* tool) { return IsInCatalogue(tool->appType); })) {
        return true;
    }
    std::vector<std::wstring> packages;
    FindFiles(GetExeDirectory() + L"\\..\\..\\Install\\", packages, L"msi");
    return std::ranges::any_of(packages, [&](const std::wstring& path) {
        return std::ranges::any_of(
            tools, [&](const auto* tool) { return path.find(tool->packageName) != std::wstring::npos; });
    });
}

bool DriverConfiguration::CanConfigureDriver(const std::wstring& driverId) const {
    return drivers.IsOmbrelSupported(driverId) && IsConfigToolAvailable(driverId);
}

void DriverConfiguration::Follow(const std::wstring& driverId) {
    if (driverId.empty()) return;
    if (settings.GetString(Tag::DRIVERCONFIG_PATH).empty()) {
        owner.clear();
    } else if (owner.empty()) {
        owner = driverId;
    } else if (owner != driverId) {
        Drop();
    }
}

void DriverConfiguration::Drop() {
    owner.clear();
    settings.SetStrings({{Tag::DRIVERCONFIG_PATH, {}}, {Tag::CONFIG_EXE_PATH, {}}, {Tag::OMBREL_DESC, {}}});
    settings.SetBool(Tag::CONFIG_APPLY_FUTURE, false);
}

std::wstring GetConfigurationFolder() {
    return GetCommonDataFolder() + L"\\DriverConfigurations\\";
}

std::wstring GetToolFolder(const std::wstring& driver, const std::wstring& vendor) {
    const ConfigToolKind& tool = ConfigToolFor(driver);
    return GetTemporaryFolder()
        .append(tool.folderBeforeVendor)
        .append(vendor)
        .append(tool.folderBehindVendor);
}

std::wstring DriverConfiguration::FindConfigTool(const std::wstring& driver) const {
    std::wstring folder = GetToolFolder(driver, settings.GetString(Tag::OEM));
    if (!PathExists(folder)) folder = GetToolFolder(driver, unnamedVendor);
    std::vector<std::wstring> programs;
    FindFiles(folder, programs, L"exe");
    return LastPathWith(programs, ConfigToolFor(driver).program);
}

std::wstring DriverConfiguration::MakeConfigFileName(const std::wstring& driver) const {
    const std::wstring folder = GetConfigurationFolder();
    CreateDirectoryW(folder.c_str(), nullptr);
    const std::wstring_view extension = ConfigToolFor(driver).fileExtension;
    std::wstring path;
    std::uint32_t count = 0;
    do {
        path = ConfigFilePath(folder, settings.GetString(Tag::OEM), extension, count++);
    } while (PathExists(path));
    return path;
}

std::wstring DriverConfiguration::MakeConfigCommand(const std::wstring& driver) const {
    return ConfigCommandFor(driver, {.toolPath = FindConfigTool(driver),
                                     .vendor = settings.GetString(Tag::OEM),
                                     .product = settings.GetString(Tag::PRODUCT_NAME),
                                     .file = MakeConfigFileName(driver)});
}

void DriverConfiguration::UnpackTool(const std::wstring& driverId) {
    bool& unpacked = IsV4Driver(driverId) ? v4ToolUnpacked : olderToolUnpacked;
    if (unpacked) return;
    MSIExtractService service(applications);
    service.SetDriverId(driverId);
    if (!service.disabled) service.DoRun();
    unpacked = true;
}
