#include "install/InstallDecision.h"

#include "CommonLib/MsiCodes.h"
#include "settings/TextKeys.h"

bool ReportsNewer(const MSI_APP& app) {
    return app.installed && app.newerInstalled;
}

InstallAction DecideInstall(const MSI_APP& app) {
    if (ReportsNewer(app) && !app.hasDependents) return InstallAction::ReportNewer;
    if (app.onlyDependentsSelected) return InstallAction::RunDependentsOnly;
    if (app.installed && app.forceReinstall) return InstallAction::ForceReinstall;
    if (app.installed && app.minorUpgrade) return InstallAction::MinorUpgrade;
    return InstallAction::AskAgain;
}

InstallOutcome ReadReturnCode(std::uint32_t code, bool isScanDriver, bool systemBefore60) {
    switch (code) {
        case MsiCode::Success:
            return InstallOutcome::Done;
        case MsiCode::UserCancelled:
            return InstallOutcome::Cancelled;
        case MsiCode::RebootInitiated:
        case MsiCode::RebootRequired:
            return InstallOutcome::RebootRequired;
        default:
            return isScanDriver && systemBefore60 ? InstallOutcome::NotSupported : InstallOutcome::Failed;
    }
}

PackageStatus StatusFor(InstallOutcome outcome, const MSI_APP& app) {
    switch (outcome) {
        case InstallOutcome::Cancelled:
            return PackageStatus::Cancelled;
        case InstallOutcome::Failed:
            return PackageStatus::Failed;
        case InstallOutcome::NotSupported:
            return PackageStatus::NotSupported;
        default:
            return app.installed && app.upgradable ? PackageStatus::Updated : PackageStatus::Done;
    }
}

ErrorDialogTexts ErrorDialogFor(std::uint32_t code) {
    switch (code) {
        case MsiCode::UserCancelled:
        case MsiCode::LogFailure:
        case MsiCode::LanguageUnsupported:
            return {.titleKey = {}, .textKey = {}, .stopsRun = false};
        case MsiCode::DiskFull:
            return {.titleKey = TextKey::DISK_FULL_ERROR_TITLE,
                    .textKey = TextKey::DISK_FULL_ERROR_TEXT,
                    .stopsRun = true};
        case MsiCode::AlreadyInitialized:
        case MsiCode::InstallAlreadyRunning:
            return {.titleKey = TextKey::INSTALL_ALREADY_RUNNING_TITLE,
                    .textKey = TextKey::INSTALL_ALREADY_RUNNING_TEXT,
                    .stopsRun = true};
        case MsiCode::PackageRejected:
        case MsiCode::RemoteDisallowed:
            return {.titleKey = TextKey::PERMISSION_ERROR_TITLE,
                    .textKey = TextKey::PERMISSION_ERROR_TEXT,
                    .stopsRun = true};
        default:
            return {.titleKey = TextKey::ERROR_TITLE, .textKey = TextKey::ERROR_TEXT, .stopsRun = true};
    }
}
