#include "app/StartUp.h"

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "app/PageRules.h"
#include "app/Preparation.h"
#include "catalogue/MsiInfoService.h"
#include "catalogue/MsiInterface.h"
#include "printer/DriverConfigPaths.h"
#include "printer/InfoCenterLinks.h"
#include "settings/SettingsFiles.h"
#include "settings/TagNames.h"

namespace {

void MergeUserSettings(const Collaborators& shared) {
    InstallSettings& settings = shared.settings;
    if (MergeFile(settings, GetExeDirectory() + L"\\..\\PackageUserSettings.xml") != 0) return;
    TakePredefinedPrinters(settings);
    ResolveDriverConfigPaths(settings);
    DeriveInfoCenterLinks(settings, shared.localizer);
}

void BuildCatalogues(const Collaborators& shared) {
    MsiInfoService service(*MsiInterface::GetInstance(), shared.settings, shared.localizer,
                           shared.applications, shared.drivers);
    if (!service.disabled) service.DoRun();
}

}  // namespace

NetworkAddress PrinterNamedIn(const CmdLineHelper& commandLine) {
    return {.address = commandLine.GetValue(CmdLineHelper::Option::Address),
            .portName = commandLine.GetValue(CmdLineHelper::Option::Port)};
}

bool InitializeWizard(const Collaborators& shared) {
    InstallSettings& settings = shared.settings;
    MergeUserSettings(shared);
    LogBasic(L"Starting Installer");
    settings.SetBool(Tag::OPTIONAL_INSTALL, false);
    TakePrinterOfCommandLine(PrinterNamedIn(shared.commandLine),
                             {settings, shared.applications, shared.drivers, shared.localizer});
    const bool silent = settings.GetBool(Tag::SILENT_INSTALL);
    BuildCatalogues(shared);
    if (settings.GetBool(Tag::INSTALL_FROM_CONFIG)) ResolveConfigExePaths(settings, shared.applications);
    SettleChainTags(settings, shared.drivers);
    return silent;
}
