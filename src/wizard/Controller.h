// The spine of the wizard: owns the pages and the services and walks from page to page.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "CommonLib/Singleton.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "wizard/Chain.h"

// Pages are reached by their index in the chain; a page knows the Controller and no other page. The main
// thread calls everything here; the install thread calls Next at its end, Cancel with force, and
// UpdateThreadCount.
//
// Reads OPTIONAL_INSTALL; writes INSTALL_STATUS and SHOW_REGISTRATION.
// To the main window: a worker asks for the end of the run, with a restart if wParam is not 0.
inline constexpr UINT finishForWorker = WM_APP;

class Controller {
public:
    static Controller& GetInstance();

    // Both must outlive the object.
    Controller(InstallSettings& store, const Localizer& texts) : settings(store), localizer(texts) {}
    Controller(const Controller&) = delete;
    Controller& operator=(const Controller&) = delete;
    ~Controller() = default;

    // Creates the pages of the chain and shows the first that is not hidden; where that is the very first, it
    // can be seen while the others are made, and is used when they are. A silent run is over when this
    // returns. False if there is no first page.
    bool Start(Chain pages, bool silentRun);

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
    // Waits for the workers, closes the wizard, and starts the packages' programs or the restart. A worker
    // cannot wait for itself, so that it only asks the main thread to. Does nothing after the end. Returns
    // true.
    bool Finish(bool reboot);
    // What a worker has asked for, on the main thread.
    void FinishForWorker(bool reboot);
    // Runs the step while the user is not being asked whether to cancel, so that none is asked too late. The
    // install thread.
    void BetweenQuestions(const std::function<void()>& step);
    // Removes the folders of the configuration tools and posts the end of the message loop.
    void Close();

    // Has every service take back what it keeps up outside of the program.
    void CloseServices();

    // Runs the service of the current page once more.
    void RunCurrentService();

    // Reads again from the tags which pages are hidden.
    void UpdateHideFlags();
    // Counts a worker thread that starts or ends. The starting thread counts up, the worker itself down.
    void UpdateThreadCount(bool increment);
    int ThreadCount() const { return threadCount; }

    // Where pages go in the main window.
    void SetPageRect(const RECT& area) { pageRect = area; }
    // Moves the pages that there are to that part by now.
    void PlacePagesAnew();
    // The current page, or null.
    InstallDialogEx* CurrentPage() const;

private:
    friend class Singleton<Controller>;
    Controller();

    // A page of the chain with its service. The page stays without a window where that cannot be made.
    struct Place {
        ChainRow row;
        std::unique_ptr<InstallDialogEx> page;
        std::unique_ptr<Service> service;
        bool isAdded = false;
    };

    void BuildDialogs();
    bool AddDialog(Place& place) const;
    bool IsFirstPageShown() const;
    void DisableDiscovery();
    int LastIndex() const { return static_cast<int>(places.size()) - 1; }
    const Place* CurrentPlace() const;
    bool IsCurrentRole(PageRole role) const;
    void HidePages(PageRole role);
    Service* EnabledService() const;
    void HideCurrentPage();
    void ShowCurrentPage(std::wstring message);
    bool IsClosingPage() const;
    bool IsInstallAtWork() const;
    bool ConfirmCancel() const;
    // Asks whether to cancel, and does so on Yes. Returns whether the cancel goes ahead.
    bool AskAndCancel();
    void CancelRun();
    void CancelServices();

    InstallSettings& settings;
    const Localizer& localizer;
    bool silent = false;
    WalkEnds ends;
    // Pages and services are made once and stay until the process ends.
    std::vector<Place> places;
    std::atomic<int> currentDialog = 0;
    RECT pageRect{};
    // The thread of the windows, from the start of the walk on.
    DWORD mainThread = 0;
    bool ended = false;
    std::mutex questionLock;
    // The question is open, on the main thread.
    bool isAsking = false;
    // Makes a change of the count and its record one step; the count itself is read without it.
    std::mutex threadCountLock;
    std::atomic<int> threadCount = 0;
};
