#include "wizard/Controller.h"

#include <algorithm>
#include <utility>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/MsiCodes.h"
#include "framework/CWinApp.h"
#include "settings/InstallStatus.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "wizard/FolderCleanUp.h"
#include "wizard/LocalizedMessage.h"

namespace {

constexpr DWORD pollIntervalInMilliseconds = 500;

Singleton<Controller> sharedController;

void CallIfSet(const std::function<void()>& end) {
    if (end) end();
}

// Sets a flag for the length of its life.
class Raised {
public:
    explicit Raised(bool& raised) : flag(raised) { flag = true; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;
    ~Raised() { flag = false; }

private:
    bool& flag;
};

// Sleeps, but answers what other threads send to this thread's windows, such as the disabling of a message
// box's owner, which would otherwise wait for this thread for ever. Posted messages stay where they are.
void SleepAnsweringSentMessages(DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
        // cppcheck-suppress nullPointer ; no handles are waited for
        MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(end - now), QS_SENDMESSAGE, 0);
        MSG message{};
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
}

}  // namespace

Controller& Controller::GetInstance() {
    return sharedController.Get();
}

Controller::Controller() : Controller(InstallSettings::GetInstance(), Localizer::GetInstance()) {}

void Controller::BuildDialogs() {
    for (Place& place : places) {
        place.page = place.row.makePage();
        place.isAdded = AddDialog(place);
        if (!place.isAdded) LogBasic(place.row.failure, LogLevel::Error);
        if (place.row.makeService) place.service = place.row.makeService(*place.page);
        if (&place != &places.front() || !IsFirstPageShown()) continue;
        place.page->ShowWindow(SW_SHOW);
        CallIfSet(ends.showWindow);
    }
}

bool Controller::IsFirstPageShown() const {
    return places.front().isAdded && !places.front().page->hidden && !silent;
}

bool Controller::AddDialog(Place& place) const {
    if (!place.page->CreateAsPage(pageRect)) return false;
    place.page->hidden = place.row.hiddenAtFirst;
    return true;
}

void Controller::PlacePagesAnew() {
    for (const Place& place : places) {
        if (place.isAdded) place.page->PlaceAnew(pageRect);
    }
}

void Controller::UpdateHideFlags() {
    for (const Place& place : places) {
        if (place.page && place.row.isHidden) place.page->hidden = place.row.isHidden();
    }
}

bool Controller::Start(Chain pages, bool silentRun) {
    silent = silentRun;
    mainThread = GetCurrentThreadId();
    ends = std::move(pages.ends);
    places.clear();
    for (ChainRow& row : pages.rows) places.push_back({.row = std::move(row)});
    currentDialog = 0;
    ended = false;
    BuildDialogs();
    UpdateHideFlags();
    DisableDiscovery();
    if (CurrentPage() == nullptr) {
        LogBasic(L"Controller::Start, Starting Dialog is NULL", LogLevel::Error);
        Close();
        return false;
    }
    if (IsFirstPageShown()) {
        CurrentPage()->Appear();
    } else {
        Next({});
    }
    return true;
}

void Controller::DisableDiscovery() {
    for (const Place& place : places) {
        if (place.row.role == PageRole::Discovery && place.isAdded && place.service) {
            place.service->disabled = silent || place.page->hidden;
        }
    }
}

const Controller::Place* Controller::CurrentPlace() const {
    const auto index = static_cast<std::size_t>(currentDialog.load());
    return index < places.size() ? &places[index] : nullptr;
}

InstallDialogEx* Controller::CurrentPage() const {
    const Place* const place = CurrentPlace();
    return place != nullptr && place->isAdded ? place->page.get() : nullptr;
}

bool Controller::IsCurrentRole(PageRole role) const {
    return CurrentPage() != nullptr && CurrentPlace()->row.role == role;
}

void Controller::HidePages(PageRole role) {
    for (const Place& place : places) {
        if (place.row.role == role) place.page->hidden = true;
    }
}

Service* Controller::EnabledService() const {
    const Place* const place = CurrentPlace();
    Service* const service = place == nullptr ? nullptr : place->service.get();
    return service != nullptr && !service->disabled ? service : nullptr;
}

void Controller::RunCurrentService() {
    if (Service* const service = EnabledService()) service->DoRun();
}

void Controller::HideCurrentPage() {
    if (InstallDialogEx* const page = CurrentPage()) page->Disappear();
}

void Controller::ShowCurrentPage(std::wstring message) {
    CurrentPage()->ReceiveMessage(std::move(message));
    CurrentPage()->Appear();
}

// One turn of the loop is one step of the chain; a page that is passed over drops the message.
bool Controller::Next(std::wstring message) {
    for (;; message.clear()) {
        HideCurrentPage();
        // A reboot that the core run asks for waits for the end of the optional run.
        if (IsCurrentRole(PageRole::CoreFinish) && settings.GetBool(Tag::OPTIONAL_INSTALL)) {
            HidePages(PageRole::CoreReboot);
        }
        if (currentDialog >= LastIndex()) {
            if (silent) LogBasic(L"End of silent mode install");
            Finish(false);
            return true;
        }
        const int former = currentDialog++;
        if (CurrentPage() == nullptr) {
            LogBasic(L"Controller::Next, Cannot switch to next dialog", LogLevel::Error);
            Close();
            return false;
        }
        LogAdvanced(L"Controller::Next, Moving from " + std::to_wstring(former) + L" to " +
                    std::to_wstring(former + 1));
        Service* const service = EnabledService();
        const bool isShown = !CurrentPage()->hidden && !silent;
        if (isShown) ShowCurrentPage(std::move(message));
        const bool failed = service != nullptr && service->DoRun() == MsiCode::InstallFailure;
        // A run that has failed before it began has its Finish page too.
        if (isShown && !failed) return true;
        if (!isShown && failed) {
            CallIfSet(ends.copyLogToPackage);
            Finish(false);
            return true;
        }
    }
}

bool Controller::Back(std::wstring message) {
    HideCurrentPage();
    const int former = currentDialog;
    if (former > 0) --currentDialog;
    LogAdvanced(L"Controller::Back, Moving from " + std::to_wstring(former) + L" to " +
                std::to_wstring(currentDialog));
    if (CurrentPage() == nullptr) {
        LogBasic(L"Controller::Back, Cannot switch to previous dialog", LogLevel::Error);
        Close();
        return false;
    }
    ShowCurrentPage(std::move(message));
    return true;
}

bool Controller::GoToSpecifiedDlg(const std::wstring& name, std::wstring message) {
    HideCurrentPage();
    const auto named = std::ranges::find_if(
        places, [&](const Place& place) { return place.isAdded && place.page->dialogName == name; });
    if (named != places.end()) currentDialog = static_cast<int>(named - places.begin());
    LogAdvanced(L"Controller::GoToSpecifiedDlg, Move to " + std::to_wstring(currentDialog));
    if (CurrentPage() == nullptr) return false;
    Service* const service = EnabledService();
    if (CurrentPage()->hidden || silent) {
        if (service != nullptr) service->DoRun();
        Next(std::move(message));
    } else {
        ShowCurrentPage(std::move(message));
        if (service != nullptr && service->DoRun() == MsiCode::InstallFailure) Next({});
    }
    return true;
}

bool Controller::Cancel(bool force) {
    LogAdvanced(L"Controller::Cancel called");
    if (AfxGetApp() == nullptr) return false;
    if (AfxGetMainWnd() == nullptr) {
        LogAdvanced(L"Controller::Cancel No on Are You Sure", LogLevel::Success);
        return false;
    }
    if (!force && IsClosingPage()) {
        Finish(false);
        return false;
    }
    const bool isInstalling = IsCurrentRole(PageRole::Progress) || IsInstallAtWork();
    if (force) {
        CancelRun();
    } else if (!AskAndCancel()) {
        return false;
    }
    // The install thread winds down and moves the walk by itself.
    if (!isInstalling) Finish(false);
    return true;
}

bool Controller::AskAndCancel() {
    // A window that is closed once more from outside asks no second time.
    if (isAsking) return false;
    const std::lock_guard guard(questionLock);
    // From here on the run only moves on to the page that says how it went.
    if (IsCurrentRole(PageRole::Progress) && !IsInstallAtWork()) return false;
    const Raised asking(isAsking);
    if (!ConfirmCancel()) return false;
    CancelRun();
    return true;
}

void Controller::CancelRun() {
    LogBasic(L"User chose to cancel the installation.");
    LogAdvanced(L"Controller::Cancel Yes on Are You Sure", LogLevel::Success);
    settings.SetStrings({{Tag::SHOW_REGISTRATION, L"0"}, {Tag::INSTALL_STATUS, InstallStatus::CANCELED}});
    CancelServices();
}

bool Controller::IsInstallAtWork() const {
    return std::ranges::any_of(places,
                               [](const Place& place) { return place.service && place.service->IsAtWork(); });
}

void Controller::BetweenQuestions(const std::function<void()>& step) {
    const std::lock_guard asking(questionLock);
    step();
}

bool Controller::IsClosingPage() const {
    return IsCurrentRole(PageRole::CoreFinish) || IsCurrentRole(PageRole::CoreReboot) ||
           IsCurrentRole(PageRole::Finish) || IsCurrentRole(PageRole::Reboot);
}

bool Controller::ConfirmCancel() const {
    const bool asksForOptional = settings.GetBool(Tag::OPTIONAL_INSTALL) && ends.isCoreSoftwareSelected &&
                                 ends.isCoreSoftwareSelected();
    const int answer =
        ShowLocalizedMessage(localizer, AfxGetMainWnd()->GetSafeHwnd(),
                             asksForOptional ? TextKey::OPTIONAL_SOFTWARE_CANCEL_CONFIRMATION_TEXT
                                             : TextKey::CANCEL_CONFIRMATION_TEXT,
                             TextKey::INSTALL_TITLE, MB_YESNO | MB_ICONWARNING);
    return answer == IDYES;
}

void Controller::CancelServices() {
    for (std::size_t count = std::min(places.size(), static_cast<std::size_t>(currentDialog) + 1); count > 0;
         --count) {
        if (Service* const service = places[count - 1].service.get()) service->Cancel();
    }
}

// Waits on the main thread, which owns the windows that a worker may still need: a message box of the install
// thread disables its owner by a sent message. Posted messages wait, so that no click starts anything here.
bool Controller::Finish(bool reboot) {
    if (mainThread != 0 && mainThread != GetCurrentThreadId()) {
        if (const CWnd* const mainWindow = AfxGetMainWnd())
            mainWindow->PostMessage(finishForWorker, static_cast<WPARAM>(reboot));
        return true;
    }
    // A click that was posted before the end comes after it, and where the page of the progress is hidden the
    // user and the install thread may both walk over the end.
    if (ended) return true;
    ended = true;
    LogBasic(L"Installation is Finished");
    while (threadCount > 0) SleepAnsweringSentMessages(pollIntervalInMilliseconds);
    Close();
    CloseServices();
    if (reboot) {
        LogBasic(L"System reboot is required to complete installation. Rebooting..");
        CallIfSet(ends.restart);
    } else {
        CallIfSet(ends.startPrograms);
    }
    return true;
}

void Controller::FinishForWorker(bool reboot) {
    Finish(reboot);
}

void Controller::Close() {
    LogAdvanced(L"Controller::Close");
    RemoveFolder(GetTemporaryFolder() + L"ArdentisKit");
    RemoveFolder(GetTemporaryFolder() + L"TolvaneKit");
    EndMessageLoop();
}

void Controller::CloseServices() {
    for (const Place& place : places) {
        if (place.service) place.service->Close();
    }
}

// The record is written while the worker still counts: once it does not, the program may end under it.
void Controller::UpdateThreadCount(bool increment) {
    const std::lock_guard guard(threadCountLock);
    const int count = threadCount;
    if (increment) {
        ++threadCount;
        LogAdvanced(L"Thread Count incremented " + std::to_wstring(count + 1));
    } else if (count < 1) {
        LogAdvanced(L"Attempted to decrement below 0 " + std::to_wstring(count));
    } else {
        LogAdvanced(L"Thread Count decremented " + std::to_wstring(count - 1));
        --threadCount;
    }
}
