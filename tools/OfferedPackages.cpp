#include "tools/OfferedPackages.h"

#include "CommonLib/Files.h"
#include "catalogue/MsiInfoService.h"
#include "catalogue/MsiInterface.h"
#include "install/InstallSelection.h"
#include "settings/SettingsFiles.h"
#include "settings/TagNames.h"

std::optional<OfferedPackages> ReadOfferedPackages(const Collaborators& shared) {
    InstallSettings& settings = shared.settings;
    if (LoadDefaults(settings) != 0) return std::nullopt;
    if (MergeFile(settings, GetExeDirectory() + L"\\..\\PackageUserSettings.xml") == 0) {
        settings.SetBool(Tag::INSTALL_FROM_CONFIG, true);
        settings.SetDevices(settings.GetAllValues(Tag::DEVICE));
    }
    MsiInterface& msi = *MsiInterface::GetInstance();
    MsiInfoService(msi, shared.settings, shared.localizer, shared.applications, shared.drivers).DoRun();
    return OfferedPackages{.applications = SelectApps(settings, shared.applications),
                           .drivers = SelectDrivers(settings, shared.drivers)};
}
