#include "tools/Rollout/OfferedPackages.h"

#include "CommonLib/Files.h"
#include "app/Preparation.h"
#include "catalogue/MsiInfoService.h"
#include "catalogue/MsiInterface.h"
#include "install/InstallSelection.h"
#include "settings/SettingsFiles.h"

std::optional<OfferedPackages> ReadOfferedPackages(const Collaborators& shared) {
    InstallSettings& settings = shared.settings;
    if (LoadDefaults(settings) != 0) return std::nullopt;
    if (MergeFile(settings, GetExeDirectory() + L"\\..\\PackageUserSettings.xml") == 0) {
        TakePredefinedPrinters(settings);
    }
    MsiInterface& msi = *MsiInterface::GetInstance();
    MsiInfoService(msi, shared.settings, shared.localizer, shared.applications, shared.drivers).DoRun();
    return OfferedPackages{.applications = SelectApps(settings, shared.applications),
                           .drivers = SelectDrivers(settings, shared.drivers)};
}
