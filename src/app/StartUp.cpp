#include "app/StartUp.h"

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "app/PageRules.h"
#include "catalogue/MsiInfoService.h"
#include "catalogue/MsiInterface.h"
#include "printer/ApplyChoice.h"
#include "printer/DriverConfigPaths.h"
#include "printer/InfoCenterLinks.h"
#include "settings/SettingsFiles.h"
#include "settings/TagNames.h"

namespace {

void MergeUserSettings(const Collaborators& shared) {
    InstallSettings& settings = shared.settings;
    if (MergeFile(settings, GetExeDirectory() + L"\\..\\PackageUserSettings.xml") != 0) return;
    settings.SetBool(Tag::INSTALL_FROM_CONFIG, true);
    settings.SetDevices(settings.GetAllValues(Tag::DEVICE));
    ResolveDriverConfigPaths(settings);
    DeriveInfoCenterLinks(settings, shared.localizer);
}

void TakePrinterFromCommandLine(const Collaborators& shared) {
    if (shared.settings.GetBool(Tag::HIDE_DISCOVERY)) return;
    const std::wstring address = shared.commandLine.GetValue(CmdLineHelper::Option::Address);
    if (address.empty()) return;
    ApplyChoice(ChooseAddress({address, shared.commandLine.GetValue(CmdLineHelper::Option::Port)}),
                {shared.settings, shared.applications, shared.drivers, shared.localizer});
}

void BuildCatalogues(const Collaborators& shared) {
    MsiInfoService service(*MsiInterface::GetInstance(), shared.settings, shared.localizer,
                           shared.applications, shared.drivers);
    if (!service.disabled) service.DoRun();
}

}  // namespace

bool InitializeWizard(const Collaborators& shared) {
    InstallSettings& settings = shared.settings;
    MergeUserSettings(shared);
    LogBasic(L"Starting Installer");
    settings.SetBool(Tag::OPTIONAL_INSTALL, false);
    TakePrinterFromCommandLine(shared);
    const bool silent = settings.GetBool(Tag::SILENT_INSTALL);
    BuildCatalogues(shared);
    if (settings.GetBool(Tag::INSTALL_FROM_CONFIG)) ResolveConfigExePaths(settings, shared.applications);
    SettleChainTags(settings, shared.drivers);
    return silent;
}
