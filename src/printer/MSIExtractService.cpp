#include "printer/MSIExtractService.h"

#include <utility>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/ProcessStart.h"
#include "framework/SystemLibrary.h"
#include "printer/ConfigTool.h"

namespace {

// Long enough for any tool on any machine.
constexpr DWORD longestUnpackingInSeconds = 300;

}  // namespace

MSIExtractService::MSIExtractService(const AppCatalogue& catalogue, std::wstring packagePath)
    : applications(catalogue), msiPath(std::move(packagePath)) {}

std::wstring MSIExtractService::PackageOfType(std::wstring_view appType) const {
    const auto record = applications.FirstOfType(appType);
    return record ? record->msiPath : std::wstring();
}

void MSIExtractService::Unpack(const std::wstring& folder) {
    if (IsFolderLink(folder)) {
        LogBasic(L"Nothing is unpacked through the link " + folder, LogLevel::Error);
        return;
    }
    const std::wstring installer = GetSystemFolder() + L"\\msiexec.exe";
    process = StartProcess(installer, UnpackCommand(installer, package, folder), CREATE_NO_WINDOW);
    if (process) return;
    const std::wstring code = std::to_wstring(GetLastError());
    LogBasic(L"The unpacking of " + package + L" cannot be started, error " + code, LogLevel::Error);
}

std::uint32_t MSIExtractService::DoRun() {
    const ConfigToolKind& tool = msiPath.empty() ? ConfigToolFor(driverId) : v4ConfigTool;
    package = std::exchange(msiPath, {});
    if (package.empty()) package = PackageOfType(tool.appType);
    process.reset();
    if (!package.empty()) Unpack(GetTemporaryFolder().append(tool.unpackFolder));
    return 1;
}

void MSIExtractService::WaitForEnd() const {
    if (!process || WaitForSingleObject(process.get(), longestUnpackingInSeconds * 1000) == WAIT_OBJECT_0) {
        return;
    }
    LogBasic(L"The unpacking of " + package + L" takes longer than " +
                 std::to_wstring(longestUnpackingInSeconds) + L" seconds",
             LogLevel::Error);
}
