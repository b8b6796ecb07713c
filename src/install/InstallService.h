// Runs the chosen packages, and removes again what a cancelled run has installed.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "catalogue/IMsiInterface.h"
#include "catalogue/MSI_APP.h"
#include "wizard/Service.h"

class ProgressDialog;

// DoRun and Cancel belong to the main thread (a forced cancel comes from the install thread), everything else
// to the install thread that DoRun starts.
class InstallService : public Service {
public:
    // Neither is owned; the page may be null.
    InstallService(ProgressDialog* progressPage, IMsiInterface* gateway) : page(progressPage), msi(gateway) {}

    // Chooses the packages, sees to the .NET prerequisite and starts the install thread. Gives 0, or 1603 if
    // the prerequisite has stopped the run before it began.
    std::uint32_t DoRun() override;
    void Cancel() override;

    // What a run would take on now: copies of the chosen applications, and of the chosen drivers, each in the
    // order in which they would run.
    std::vector<MSI_APP> SelectApps() const;
    std::vector<MSI_APP> SelectDrivers() const;

    // The outcome of each package that this run has reached.
    const std::vector<MSI_APP>& StatusList() const { return statusList; }

private:
    bool StartThread();
    unsigned InstallThread();

    bool NeedsDotNet(const std::vector<MSI_APP>& list) const;
    std::uint32_t InstallDotNet();
    std::uint32_t ReadDotNetResult(std::uint32_t code);
    void ReportDotNetError(std::uint32_t code);

    void RunInstalls();
    // Runs the records in order. Dependents come through here too, inside their parent's turn.
    void InstallList(std::vector<MSI_APP>& list);
    void RunRecord(MSI_APP& record, const std::wstring& targetDir, const std::wstring& language);
    bool IsUpToDateByNow(const MSI_APP& record) const;
    void Install(MSI_APP& record, const std::wstring& command);
    void TakeResult(MSI_APP& record, std::uint32_t code, bool& stopsRun);
    void RemoveAfterDependentFailed(const MSI_APP& record);
    void RollBack();
    void Remove(MSI_APP record);
    void RecordStatus(const MSI_APP& record);
    std::wstring BuildStatusDocument() const;
    void NameOnPage(const MSI_APP& record);
    void MakeStep();

    ProgressDialog* page;
    std::atomic<bool> cancelled = false;
    std::vector<MSI_APP> statusList;
    std::unordered_map<std::wstring, size_t> statusIndexByName;
    std::vector<MSI_APP> installList;
    IMsiInterface* msi;
};
