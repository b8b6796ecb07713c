// The operations of InstallService that see to the .NET prerequisite before the install thread starts.

#include <algorithm>

#include "CommonLib/DotNetSetup.h"
#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/TextUtilities.h"
#include "install/InstallMessages.h"
#include "install/InstallService.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"

namespace {

constexpr std::uint32_t fileNotFound = 2;
constexpr std::uint32_t restartWanted = 3011;

bool IsFrameworkPresent() {
    return IsDotNetInstalled(L"SOFTWARE\\Microsoft\\NET Framework Setup\\NDP\\v4\\Client") != 0 ||
           IsDotNetInstalled(L"SOFTWARE\\Microsoft\\NET Framework Setup\\NDP\\v4\\Full") != 0;
}

// The first program of the package's folder, or empty: a text that lies beside it is none.
std::wstring FindDotNetSetup() {
    std::vector<std::wstring> files;
    FindFiles(GetExeDirectory() + L"\\..\\..\\DotNet\\", files, L"");
    const auto setup = std::ranges::find_if(files, &IsSetupProgram);
    return setup == files.end() ? std::wstring() : *setup;
}

}  // namespace

bool InstallService::NeedsDotNet(const std::vector<MSI_APP>& list) const {
    for (const MSI_APP& record : list) {
        if (cancelled) return false;
        if (record.secureCustomProperties.find(L"NETFRAMEWORK40") != std::wstring::npos) return true;
    }
    return false;
}

std::uint32_t InstallService::InstallDotNet() {
    if (IsFrameworkPresent()) return MsiCode::Success;
    if (settings.GetBool(Tag::SILENT_INSTALL)) {
        LogBasic(
            L"!!!! Install .Net 4.0 Framework is required to run this package. Please install .Net 4.0 "
            L"Framework "
            L"from https://dotnet.microsoft.com/download/dotnet-framework/net40 and try again.");
        return MsiCode::InstallFailure;
    }
    const std::wstring setup = FindDotNetSetup();
    if (setup.empty()) {
        ReportDotNetError(fileNotFound);
        return fileNotFound;
    }
    return ReadDotNetResult(InstallDotNetRuntime(setup));
}

std::uint32_t InstallService::ReadDotNetResult(std::uint32_t code) {
    switch (code) {
        case MsiCode::Success:
            LogBasic(L".Net Installation Successful");
            settings.SetBool(Tag::DOTNET_INSTALLED, true);
            break;
        case MsiCode::RebootInitiated:
        case MsiCode::RebootRequired:
        case restartWanted:
            LogBasic(L".Net installation successful, reboot required");
            settings.SetBool(Tag::REBOOT, true);
            controller.UpdateHideFlags();
            break;
        case MsiCode::UserCancelled:
            LogBasic(L"User cancelled or got error during .net installation");
            LogBasic(L"Cancelling installation");
            settings.SetBool(Tag::DOTNET_FAILED, true);
            if (!settings.GetBool(Tag::OPTIONAL_INSTALL)) controller.Cancel(true);
            break;
        default:
            ReportDotNetError(code);
            break;
    }
    return code;
}

void InstallService::ReportDotNetError(std::uint32_t code) {
    const bool stopsRun = ShowErrorDialog(page, settings, code);
    if (!settings.GetBool(Tag::OPTIONAL_INSTALL)) settings.SetBool(Tag::DOTNET_FAILED, true);
    if (!stopsRun) return;
    LogBasic(L"Unknown error code during .net installation", LogLevel::Error);
    // By design: two blanks.
    LogBasic(L"InstallService::InstallDotNet:  Unknown error code: " + ToDecimalString(code),
             LogLevel::Error);
    LogBasic(L"Cancelling installation");
    controller.Cancel(true);
}
