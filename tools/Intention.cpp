#include "tools/Intention.h"

#include "install/InstallDecision.h"

Intention IntentionFor(const MSI_APP& record) {
    switch (DecideInstall(record)) {
        case InstallAction::ReportNewer:
            return Intention::LeaveNewer;
        case InstallAction::RunDependentsOnly:
            return Intention::DependentsOnly;
        case InstallAction::ForceReinstall:
            return Intention::InstallAgain;
        case InstallAction::MinorUpgrade:
            return Intention::MinorUpgrade;
        case InstallAction::AskAgain:
            break;
    }
    if (record.installed && record.upToDate) return Intention::PassOver;
    return record.upgradable ? Intention::Upgrade : Intention::Install;
}

std::wstring_view WordsFor(Intention intention) {
    switch (intention) {
        case Intention::LeaveNewer:
            return L"leave, something newer is installed";
        case Intention::DependentsOnly:
            return L"install the dependents only";
        case Intention::InstallAgain:
            return L"install again";
        case Intention::MinorUpgrade:
            return L"minor upgrade";
        case Intention::PassOver:
            return L"pass over, it is up to date";
        case Intention::Upgrade:
            return L"upgrade";
        case Intention::Install:
            break;
    }
    return L"install";
}
