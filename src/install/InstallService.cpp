#include "install/InstallService.h"

#include <windows.h>

#include <shlobj.h>
#include <shlwapi.h>

#include <algorithm>
#include <array>

#include "CommonLib/Logger.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/SystemVersion.h"
#include "CommonLib/TextUtilities.h"
#include "CommonLib/Vendor.h"
#include "framework/CWinApp.h"
#include "install/CommandDocument.h"
#include "install/InstallMessages.h"
#include "install/InstallSelection.h"
#include "install/StatusDocument.h"
#include "printer/SystemPorts.h"
#include "settings/InstallStatus.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "wizard/Controller.h"
#include "wizard/CountedWorker.h"

namespace {

constexpr unsigned threadExitCode = 31;

// The folder into which the packages install: the vendor's, below the system's folder of programs.
std::wstring TargetFolder(std::wstring vendor) {
    std::array<wchar_t, MAX_PATH> folder{};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_PROGRAM_FILES | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT,
                                folder.data()))) {
        return {};
    }
    if (vendor.empty()) vendor = unnamedVendor;
    PathAppendW(folder.data(), (vendor + L"\\").c_str());
    return folder.data();
}

bool HasDependentsToRun(const MSI_APP& record) {
    return record.hasDependents && !record.dependents.empty();
}

void LogAction(InstallAction action) {
    if (action == InstallAction::ForceReinstall) {
        LogAdvanced(L"This is a ForceReinstall required. Allowing component msi to handle reinstall.");
    } else if (action == InstallAction::MinorUpgrade) {
        LogAdvanced(L"This is a Minor upgrade. Reinstall mode will be added into the command line.");
    }
}

}  // namespace

InstallService::InstallService(IInstallProgress* progressPage, IMsiInterface* gateway,
                               const PageContext& context, AppCatalogue& appCatalogue,
                               DriverInfo& driverCatalogue)
    : page(progressPage),
      msi(gateway),
      controller(context.controller),
      settings(context.settings),
      localizer(context.localizer),
      applications(appCatalogue),
      drivers(driverCatalogue),
      printers(context.settings, &IsSystemPort) {}

std::uint32_t InstallService::DoRun() {
    DeliverMessagesTo(page);
    statusList.Clear();
    reachedPackages.Clear();
    settings.SetBools({{Tag::DOTNET_INSTALLED, false}, {Tag::DOTNET_FAILED, false}});
    // Applications always run before drivers.
    installList = SelectApps(settings, applications);
    const std::vector<MSI_APP> selectedDrivers = SelectDrivers(settings, drivers);
    installList.insert(installList.end(), selectedDrivers.begin(), selectedDrivers.end());
    if (NeedsDotNet(installList) && InstallDotNet() == MsiCode::InstallFailure) return FailRun();

    if (page != nullptr) {
        std::size_t steps = installList.size();
        for (const MSI_APP& record : installList) steps += record.dependents.size();
        page->BeginRun(static_cast<int>(steps));
    }
    return StartThread() ? MsiCode::Success : FailRun();
}

bool InstallService::StartThread() {
    atWork = true;
    if (StartCountedWorker(controller, [this] { return InstallThread(); })) return true;
    atWork = false;
    LogBasic(L"The install thread could not be started", LogLevel::Error);
    return false;
}

std::uint32_t InstallService::FailRun() {
    if (settings.GetBool(Tag::SILENT_INSTALL)) return MsiCode::InstallFailure;
    settings.SetStrings({{Tag::APP_INSTALLATION_STATUS, BuildStatusDocument()},
                         {Tag::INSTALL_STATUS, InstallStatus::FAILED}});
    return MsiCode::InstallFailure;
}

void InstallService::Cancel() {
    cancelled = true;
    if (page != nullptr) page->Cancel();
    msi->Cancel();
}

unsigned InstallService::InstallThread() {
    try {
        RunToTheEnd();
    } catch (...) {
        CWinApp::ReportUnhandledException(L"install thread");
        settings.SetString(Tag::INSTALL_STATUS, InstallStatus::FAILED);
    }
    controller.BetweenQuestions([this] { atWork = false; });
    settings.SetString(Tag::APP_INSTALLATION_STATUS, BuildStatusDocument());
    if (!settings.GetBool(Tag::SILENT_INSTALL)) controller.Next({});
    return threadExitCode;
}

void InstallService::RunToTheEnd() {
    RunInstalls();
    // A user who is being asked by now is waited for, and one who comes later is not asked.
    controller.BetweenQuestions([this] { atWork = cancelled.load(); });
    if (!cancelled) return;
    if (page != nullptr) page->BeginUninstalling();
    RollBack();
}

void InstallService::RunInstalls() {
    LogAdvanced(L"Final Install Settings Values");
    LogAdvanced(settings.StripMarker());
    LogBasic(L"Installing Applications");
    if (!installList.empty()) {
        place.targetDir = TargetFolder(settings.GetString(Tag::OEM));
        settings.SetString(Tag::TARGET_DIR, place.targetDir);
        place.language = localizer.GetString(TextKey::LANGUAGE_ID);
    }
    InstallList(installList);
}

void InstallService::InstallList(std::vector<MSI_APP>& list) {
    if (list.empty()) {
        LogBasic(L"There were no applications found to install", LogLevel::Error);
        return;
    }
    for (MSI_APP& record : list) {
        if (cancelled) break;
        // Also for a record that is passed over below: its programs may lie on the system already.
        settings.AppendStartApp(record.startApp);
        RunRecord(record);
    }
}

void InstallService::RunRecord(MSI_APP& record) {
    if (ReportsNewer(record)) {
        LogBasic(L"A newer version of " + record.productName +
                 L" is already installed. To install an older version of the product, please remove the "
                 L"previously "
                 L"installed version first.");
        record.isInstalled = true;
        record.status = PackageStatus::Done;
    }
    const InstallAction action = DecideInstall(record);
    if (action == InstallAction::ReportNewer) {
        RecordStatus(record);
        return;
    }
    // Made also for a record that is left out below: what one driver sets stays for the next.
    const std::wstring command = BuildCommandDocument(
        MakeCommandValues(record, printers, settings, place, action == InstallAction::MinorUpgrade));
    if (action == InstallAction::RunDependentsOnly) {
        LogAdvanced(L"Only dependent applications selected, no parent application will be installed");
        InstallList(record.dependents);
        return;
    }
    LogAction(action);
    if (action == InstallAction::AskAgain && IsUpToDateByNow(record)) return;
    Install(record, command);
}

// A package may have come onto the system since the catalogue was built, as the dependent of another one.
bool InstallService::IsUpToDateByNow(const MSI_APP& record) const {
    bool upToDate = false;
    bool upgradable = false;
    bool minorUpgrade = false;
    return msi->IsAppInstalled(record.msiPath, upToDate, upgradable, minorUpgrade) && upToDate;
}

void InstallService::Install(MSI_APP& record, const std::wstring& command) {
    NameOnPage(record);
    const std::uint32_t code = msi->InstallApp(record.msiPath, &OnInstallMessage, command);
    // The record stands in the status list before its outcome is known.
    RecordStatus(record);
    MakeStep();
    const InstallOutcome outcome =
        ReadReturnCode(code, record.isScanDriver, !IsWindowsVersionOrGreater(WindowsVersion::Vista));
    record.status = StatusFor(outcome, record);
    const bool stopsRun = ActOnOutcome(record, outcome, code);
    const bool dependentFailed =
        HasDependentsToRun(record) && std::ranges::any_of(record.dependents, [](const MSI_APP& dependent) {
            return dependent.status == PackageStatus::Failed;
        });
    if (dependentFailed) record.status = PackageStatus::Failed;
    RecordStatus(record);
    if (settings.GetBool(Tag::OPTIONAL_INSTALL)) {
        if (dependentFailed) RemoveAfterDependentFailed(record);
    } else if (stopsRun) {
        controller.Cancel(true);
    }
}

bool InstallService::ActOnOutcome(MSI_APP& record, InstallOutcome outcome, std::uint32_t code) {
    switch (outcome) {
        case InstallOutcome::Done:
            if (HasDependentsToRun(record)) InstallList(record.dependents);
            record.isInstalled = true;
            return false;
        case InstallOutcome::Cancelled:
            LogBasic(L"MSI Installer returned user canceled.", LogLevel::Success);
            return false;
        case InstallOutcome::RebootRequired:
            settings.SetBool(Tag::REBOOT, true);
            LogBasic(L"MSI Installer returned reboot requires.", LogLevel::Success);
            return false;
        case InstallOutcome::Failed:
            LogBasic(L"MSI Installer returned an error", LogLevel::Error);
            return ShowErrorDialog(page, settings, code);
        case InstallOutcome::NotSupported:
            LogBasic(L"MSI Installer returned an error", LogLevel::Error);
            return false;
    }
    return false;
}

void InstallService::RemoveAfterDependentFailed(const MSI_APP& record) {
    if (msi->UninstallApp(record.msiPath, &OnInstallMessage) != MsiCode::Success) {
        LogBasic(L"Parent msi rollback failed", LogLevel::Error);
    }
}

void InstallService::RecordStatus(const MSI_APP& record) {
    // Packages of one product name share a line, and the later one's status wins.
    statusList.Note(record.productName, record);
    reachedPackages.Note(record.msiPath, record);
    if (record.msiPath.find(L"Drivers") == std::wstring::npos) {
        applications.RecordOutcome(record);
    } else {
        drivers.RecordOutcome(record);
    }
}

void InstallService::RollBack() {
    // By design: in the order of the installs. Over a copy, since each removal writes to the list.
    for (const MSI_APP& record : std::vector<MSI_APP>(reachedPackages.Records())) {
        if (record.installed) {
            LogBasic(record.msiPath +
                     L" was previously installed the new version will remain on the system. If the user "
                     L"needs to go "
                     L"back to the previous version they will have to remove the application and run the old "
                     L"installer");
            MakeStep();
            RecordStatus(record);
        } else {
            Remove(record);
        }
    }
}

void InstallService::Remove(MSI_APP record) {
    NameOnPage(record);
    const std::uint32_t code = msi->UninstallApp(record.msiPath, &OnInstallMessage);
    MakeStep();
    if (code != MsiCode::Success) {
        LogBasic(L"Removal of " + record.msiPath + L" failed with error=" + ToDecimalString(code),
                 LogLevel::Error);
    } else if (record.status != PackageStatus::Failed) {
        record.status = PackageStatus::Cancelled;
    }
    // Also what stays as it is: of two packages of one name the later one's status wins.
    RecordStatus(record);
}

std::wstring InstallService::BuildStatusDocument() const {
    return ::BuildStatusDocument({.installed = settings.GetBool(Tag::DOTNET_INSTALLED),
                                  .failed = settings.GetBool(Tag::DOTNET_FAILED),
                                  .name = localizer.GetString(TextKey::DOTNET)},
                                 statusList.Records());
}

void InstallService::NameOnPage(const MSI_APP& record) {
    if (page != nullptr) page->SetApplication(record.productName);
}

void InstallService::MakeStep() {
    if (page != nullptr) page->MakeStep();
}
