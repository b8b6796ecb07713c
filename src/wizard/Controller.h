// The spine of the wizard: owns the pages and the services and walks from page to page.
#pragma once

#include <windows.h>

#include <array>
#include <atomic>
#include <memory>
#include <mutex>
#include <string>

#include "CommonLib/Singleton.h"
#include "wizard/Service.h"

class AddPortDlg;
class ConnectivityDlg;
class DiscoveryDlg;
class EULADlg;
class FinishDlg;
class InstallDialogEx;
class ManufacturerDlg;
class OptionalSoftwareBypassDlg;
class ProgressDialog;
class RebootDlg;
class StartDlg;

// Pages are reached by their index in the chain; a page knows the Controller and no other page. The main
// thread calls everything here; the install thread calls Next at its end, Cancel with force, and
// UpdateThreadCount.
class Controller {
public:
    static Controller& GetInstance();
    Controller(const Controller&) = delete;
    Controller& operator=(const Controller&) = delete;
    ~Controller();

    // Merges the user's settings, builds the catalogues and settles the tags that the chain reads.
    bool Initialize();
    // Creates the pages and shows the first that is not hidden. A silent run is over when this returns. False
    // if there is no first page.
    bool Start();

    // Moves on to the next page that is to be shown, running the services of those passed over. False if a
    // page of the chain is missing; the wizard closes then.
    bool Next(std::wstring message);
    // Moves to the page before, hidden or not. False as for Next.
    bool Back(std::wstring message);
    // Moves to the page of that name; stays where it is if there is none. False if there is no page at all.
    bool GoToSpecifiedDlg(const std::wstring& name, std::wstring message);
    // Asks whether to cancel, unless forced, and cancels all services passed so far. True if the cancel goes
    // ahead.
    bool Cancel(bool force);
    // Waits for the workers, closes the wizard, and starts the packages' programs or the restart. Gives true.
    bool Finish(bool reboot);
    // Removes the folders of the configuration tools and posts the end of the message loop.
    void Close();

    // Runs the service of the current page once more.
    void RunCurrentService();

    // Reads again from the tags which pages are hidden.
    void UpdateHideFlags();
    // Counts a worker thread that starts or ends. The starting thread counts up, the worker itself down.
    void UpdateThreadCount(bool increment);
    int ThreadCount() const { return threadCount; }

    // Where pages go in the main window.
    void SetPageRect(const RECT& area) { pageRect = area; }
    // The current page, or null.
    InstallDialogEx* CurrentPage() const;
    int CurrentIndex() const { return currentDialog; }

private:
    friend class Singleton<Controller>;
    static constexpr size_t slotCount = 20;

    Controller();

    int BuildDialogs();
    bool AddDialog(InstallDialogEx& page, bool isHidden, size_t index);
    void MergeUserSettings();
    void TakePrinterFromCommandLine();
    void SettleChainTags();
    void DisableDiscovery();
    Service* EnabledService(int index) const;
    void HideCurrentPage();
    void ShowCurrentPage(std::wstring message);
    bool IsClosingPage() const;
    bool IsInstallThreadMovingOn() const;
    bool ConfirmCancel() const;
    void CancelServices();
    void CopyLogToPackage() const;

    bool silent = false;
    std::wstring packageUserSettingsPath;

    // Pages and services are made once and stay until the process ends.
    std::unique_ptr<StartDlg> startDlg;
    std::unique_ptr<EULADlg> eulaDlg;
    std::unique_ptr<ManufacturerDlg> manufacturerDlg;
    std::unique_ptr<OptionalSoftwareBypassDlg> bypassDlg;
    std::unique_ptr<ConnectivityDlg> connectivityDlg;
    std::unique_ptr<DiscoveryDlg> discoveryDlg;
    std::unique_ptr<AddPortDlg> addPortDlg;
    std::unique_ptr<ProgressDialog> progressDlg;
    std::unique_ptr<FinishDlg> coreFinishDlg;
    std::unique_ptr<RebootDlg> coreRebootDlg;
    std::unique_ptr<FinishDlg> finishDlg;
    std::unique_ptr<RebootDlg> rebootDlg;

    // The chain by page index, and the service of the page with the same index.
    std::array<InstallDialogEx*, slotCount> dialogs{};
    std::array<std::unique_ptr<Service>, slotCount> services;
    std::unique_ptr<Service> msiInfoService;

    int lastDialog = 0;
    std::atomic<int> currentDialog = 0;
    RECT pageRect{};
    // Makes a change of the count and its record one step; the count itself is read without it.
    std::mutex threadCountLock;
    std::atomic<int> threadCount = 0;
};
