#include "ports/DriverConfiguration.h"

#include <windows.h>

#include <algorithm>
#include <vector>

#include "CommonLib/Files.h"
#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "ports/ConfigTool.h"
#include "ports/DriverConfigDlg.h"
#include "ports/MSIExtractService.h"
#include "settings/InstallSettings.h"
#include "settings/TagNames.h"

namespace {

std::vector<const ConfigToolKind*> ToolsFor(const std::wstring& driver) {
    if (driver.empty()) return {&olderConfigTool, &v4ConfigTool};
    return {&ConfigToolFor(driver)};
}

bool IsInCatalogue(const ConfigToolKind& tool) {
    return AppCatalogue::GetInstance().FirstOfType(tool.appType).has_value();
}

bool Exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::wstring Vendor() {
    return InstallSettings::GetInstance().GetString(Tag::OEM);
}

}  // namespace

bool IsConfigToolAvailable(const std::wstring& driver) {
    const auto tools = ToolsFor(driver);
    if (std::any_of(tools.begin(), tools.end(), [](const auto* tool) { return IsInCatalogue(*tool); })) {
        return true;
    }
    std::vector<std::wstring> packages;
    FindFiles(GetExeDirectory() + L"\\..\\..\\Install\\", packages, L"msi");
    return std::any_of(packages.begin(), packages.end(), [&](const std::wstring& path) {
        return std::any_of(tools.begin(), tools.end(), [&](const auto* tool) {
            return path.find(tool->packageName) != std::wstring::npos;
        });
    });
}

bool CanConfigureDriver(const std::wstring& driverId) {
    return DriverInfo::GetInstance().IsOmbrelSupported(driverId) && IsConfigToolAvailable(driverId);
}

void DropConfiguration() {
    InstallSettings& settings = InstallSettings::GetInstance();
    if (!settings.GetString(Tag::DRIVERCONFIG_PATH).empty()) settings.SetString(Tag::DRIVERCONFIG_PATH, {});
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

std::wstring FindConfigTool(const std::wstring& driver) {
    std::wstring folder = GetToolFolder(driver, Vendor());
    if (!Exists(folder)) folder = GetToolFolder(driver, L"Printer");
    std::vector<std::wstring> programs;
    FindFiles(folder, programs, L"exe");
    return LastPathWith(programs, ConfigToolFor(driver).program);
}

std::wstring MakeConfigFileName(const std::wstring& driver) {
    const std::wstring folder = GetConfigurationFolder();
    CreateDirectoryW(folder.c_str(), nullptr);
    const std::wstring_view extension = ConfigToolFor(driver).fileExtension;
    std::wstring path;
    std::uint32_t count = 0;
    do {
        path = ConfigFilePath(folder, Vendor(), extension, count++);
    } while (Exists(path));
    return path;
}

std::wstring MakeConfigCommand(const std::wstring& driver) {
    return ConfigCommandFor(driver, {.toolPath = FindConfigTool(driver),
                                     .vendor = Vendor(),
                                     .product = InstallSettings::GetInstance().GetString(Tag::PRODUCT_NAME),
                                     .file = MakeConfigFileName(driver)});
}

void OpenDriverConfiguration(CWnd& page, const std::wstring& driverId,
                             std::unique_ptr<DriverConfigDlg>& dialog) {
    if (bool& unpacked = IsV4Driver(driverId) ? v4ToolUnpacked : olderToolUnpacked; !unpacked) {
        MSIExtractService service;
        service.SetDriverId(driverId);
        if (!service.disabled) service.DoRun();
        unpacked = true;
    }
    dialog = std::make_unique<DriverConfigDlg>(&page);
    dialog->ReceiveMessage(driverId);
    dialog->DoModal();
}
