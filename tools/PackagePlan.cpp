// Prints what a run of the package in this folder tree would do: lie it beside Kestrune.exe and start it
// there.

#include <string>
#include <vector>

#include "CommonLib/Files.h"
#include "CommonLib/TextUtilities.h"
#include "app/Collaborators.h"
#include "catalogue/MsiInfoService.h"
#include "catalogue/MsiInterface.h"
#include "framework/SystemLibrary.h"
#include "install/InstallDecision.h"
#include "install/InstallSelection.h"
#include "settings/SettingsFiles.h"
#include "settings/TagNames.h"
#include "tools/PrintLine.h"

namespace {

std::wstring Intention(const MSI_APP& record) {
    switch (DecideInstall(record)) {
        case InstallAction::ReportNewer:
            return L"leave, something newer is installed";
        case InstallAction::RunDependentsOnly:
            return L"install the dependents only";
        case InstallAction::ForceReinstall:
            return L"install again";
        case InstallAction::MinorUpgrade:
            return L"minor upgrade";
        case InstallAction::AskAgain:
            break;
    }
    if (record.installed && record.upToDate) return L"pass over, it is up to date";
    return record.upgradable ? L"upgrade" : L"install";
}

void Print(const std::vector<MSI_APP>& records, const std::wstring& indent) {
    for (const MSI_APP& record : records) {
        std::wstring name = record.productName + L" " + record.productVersion;
        if (name.size() < 40) name.resize(40, L' ');
        PrintLine(indent + name + L"  " + Intention(record) + L"  (" +
                  std::wstring(FileNameOf(record.msiPath)) + L")");
        Print(record.dependents, indent + L"    ");
    }
}

}  // namespace

int wmain() {
    RestrictLibrarySearch();
    const Collaborators shared = TheCollaborators();
    InstallSettings& settings = shared.settings;
    if (LoadDefaults(settings) != 0) {
        PrintLine(L"There is no defaultInstallSettings.xml one folder above this program.");
        return 1;
    }
    if (MergeFile(settings, GetExeDirectory() + L"\\..\\PackageUserSettings.xml") == 0) {
        settings.SetBool(Tag::INSTALL_FROM_CONFIG, true);
        settings.SetDevices(settings.GetAllValues(Tag::DEVICE));
    }
    MsiInterface& msi = *MsiInterface::GetInstance();
    MsiInfoService(msi, shared.settings, shared.localizer, shared.applications, shared.drivers).DoRun();
    Print(SelectApps(settings, shared.applications), L"");
    Print(SelectDrivers(settings, shared.drivers), L"");
    return 0;
}
