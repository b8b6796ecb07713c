#include "printer/DriverConfigPaths.h"

#include <optional>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "printer/ConfigTool.h"
#include "printer/DerivedNames.h"
#include "printer/DriverConfiguration.h"
#include "printer/MSIExtractService.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"

namespace {

// The first path below the folder that is not taken, counting the value up; the counts add up in the name. A
// value without an extension has no free name while its own is taken: that is logged, and there is none.
std::optional<std::wstring> FreeTarget(const std::wstring& folder, const std::wstring& configuredName) {
    std::wstring name = configuredName;
    for (unsigned count = 1; CanBeRead(folder + name); ++count) {
        const std::optional<std::wstring> next = CountedName(name, count);
        if (!next) {
            LogBasic(L"A driver configuration file has no extension and its name is taken: " + configuredName,
                     LogLevel::Error);
            return std::nullopt;
        }
        name = *next;
    }
    return folder + name;
}

void ExtractTool(const AppCatalogue& applications, const std::wstring& packagePath) {
    MSIExtractService service(applications, packagePath);
    service.SetDriverId(L"V4");
    service.DoRun();
    service.WaitForEnd();
    // A second run finds no path any more and takes the package of the newer tool from the catalogue.
    if (packagePath.empty()) return;
    service.DoRun();
    service.WaitForEnd();
}

}  // namespace

void ResolveDriverConfigPaths(InstallSettings& settings) {
    std::vector<std::wstring> resolved = settings.GetDevices();
    for (std::wstring& device : resolved) {
        const std::wstring value = TagDocument::ValueOf(device, Tag::DRIVERCONFIG_PATH);
        if (value.empty()) continue;
        const std::wstring folder = GetConfigurationFolder();
        static_cast<void>(CreateFolderPath(folder));
        const std::optional<std::wstring> target = FreeTarget(folder, value);
        if (target) static_cast<void>(CopyFileTo(*target, GetExeDirectory() + L"\\..\\" + value));
        // Without a free name the device gets the file that is there.
        TagDocument::SetElement(device, Tag::DRIVERCONFIG_PATH, target.value_or(folder + value));
    }
    settings.SetDevices(std::move(resolved));
}

void ResolveConfigExePaths(InstallSettings& settings, const AppCatalogue& applications) {
    std::vector<std::wstring> resolved = settings.GetDevices();
    for (std::wstring& device : resolved) {
        const std::wstring value = TagDocument::ValueOf(device, Tag::CONFIG_EXE_PATH);
        if (value.empty()) continue;
        std::vector<std::wstring> packages;
        FindFiles(GetExeDirectory() + L"\\..\\", packages, L"msi");
        ExtractTool(applications, LastPathWith(packages, value));

        std::vector<std::wstring> programs;
        FindFiles(GetToolFolder(L"V4", settings.GetString(Tag::OEM)), programs, L"exe");
        TagDocument::SetElement(device, Tag::CONFIG_EXE_PATH, LastPathWith(programs, v4ConfigTool.program));
    }
    settings.SetDevices(std::move(resolved));
}
