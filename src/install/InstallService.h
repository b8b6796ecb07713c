// Runs the chosen packages, and removes again what a cancelled run has installed.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "catalogue/IMsiInterface.h"
#include "catalogue/MSI_APP.h"
#include "install/CommandDocument.h"
#include "install/IInstallProgress.h"
#include "install/InstallDecision.h"
#include "install/OutcomeList.h"
#include "printer/PrinterDescription.h"
#include "wizard/PageContext.h"
#include "wizard/Service.h"

// Reads DOTNET_FAILED, DOTNET_INSTALLED, OEM, OPTIONAL_INSTALL, SILENT_INSTALL and what selects the packages
// and makes their documents; writes APP_INSTALLATION_STATUS, DOTNET_FAILED, DOTNET_INSTALLED, INSTALL_STATUS,
// REBOOT, STARTAPP and TARGET_DIR.
//
// DoRun and Cancel belong to the main thread (a forced cancel comes from the install thread), everything else
// to the install thread that DoRun starts.
class InstallService : public Service {
public:
    // None is owned, and all outlive the service; the page may be null.
    InstallService(IInstallProgress* progressPage, IMsiInterface* gateway, const PageContext& context,
                   AppCatalogue& appCatalogue, DriverInfo& driverCatalogue);

    // Chooses the packages, sees to the .NET prerequisite and starts the install thread. Returns 0, or 1603
    // if the prerequisite has stopped the run before it began.
    std::uint32_t DoRun() override;
    void Cancel() override;
    bool IsAtWork() const override { return atWork; }

private:
    bool StartThread();
    unsigned InstallThread();
    // Runs the packages, and takes back what this run has installed if it is cancelled.
    void RunToTheEnd();
    // Settles the outcome where no package can say it. Returns 1603.
    std::uint32_t FailRun();

    bool NeedsDotNet(const std::vector<MSI_APP>& list) const;
    std::uint32_t InstallDotNet();
    std::uint32_t ReadDotNetResult(std::uint32_t code);
    void ReportDotNetError(std::uint32_t code);

    void RunInstalls();
    // Runs the records in order. Dependents come through here too, inside their parent's turn.
    void InstallList(std::vector<MSI_APP>& list);
    void RunRecord(MSI_APP& record);
    bool IsUpToDateByNow(const MSI_APP& record) const;
    void Install(MSI_APP& record, const std::wstring& command);
    // Returns whether the outcome stops the run.
    bool ActOnOutcome(MSI_APP& record, InstallOutcome outcome, std::uint32_t code);
    void RemoveAfterDependentFailed(const MSI_APP& record);
    void RollBack();
    void Remove(MSI_APP record);
    void RecordStatus(const MSI_APP& record);
    std::wstring BuildStatusDocument() const;
    void NameOnPage(const MSI_APP& record);
    void MakeStep();

    IInstallProgress* page;
    IMsiInterface* msi;
    Controller& controller;
    InstallSettings& settings;
    const Localizer& localizer;
    AppCatalogue& applications;
    DriverInfo& drivers;
    PrinterDescription printers;
    RunPlace place;
    std::atomic<bool> cancelled = false;
    // The install thread has not yet come to the point from which it only moves the walk on.
    std::atomic<bool> atWork = false;
    // By product name: the lines of the status document, and by path: what a roll-back takes away.
    OutcomeList statusList;
    OutcomeList reachedPackages;
    std::vector<MSI_APP> installList;
};
