#include "wizard/Controller.h"

#include <utility>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/TextUtilities.h"
#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "catalogue/MsiCodes.h"
#include "catalogue/MsiInfoService.h"
#include "catalogue/MsiInterface.h"
#include "discovery/DiscoveryDlg.h"
#include "discovery/DiscoveryService.h"
#include "framework/CWinApp.h"
#include "install/FinishDlg.h"
#include "install/FinishService.h"
#include "install/InstallService.h"
#include "install/ProgressDialog.h"
#include "install/RebootDlg.h"
#include "install/RebootService.h"
#include "pages/ConnectivityDlg.h"
#include "pages/EULADlg.h"
#include "pages/ManufacturerDlg.h"
#include "pages/OptionalSoftwareBypassDlg.h"
#include "pages/StartDlg.h"
#include "ports/AddPortDlg.h"
#include "ports/AddPortService.h"
#include "settings/InstallSettings.h"
#include "settings/TagNames.h"
#include "wizard/CmdLineHelper.h"
#include "wizard/FolderCleanUp.h"
#include "wizard/LocalizedMessage.h"

namespace {

constexpr int lastPageIndex = 11;
constexpr DWORD pollIntervalInMilliseconds = 500;

Singleton<Controller> singleton;

std::wstring Decimal(int number) {
    return std::to_wstring(number);
}

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
    return singleton.Get();
}

Controller::Controller() = default;

Controller::~Controller() = default;

bool Controller::Initialize() {
    InstallSettings& settings = InstallSettings::GetInstance();
    MergeUserSettings();
    LogBasic(L"Starting Installer");
    settings.SetBool(Tag::OPTIONAL_INSTALL, false);
    TakePrinterFromCommandLine();
    silent = settings.GetBool(Tag::SILENT_INSTALL);
    msiInfoService = std::make_unique<MsiInfoService>(*MsiInterface::GetInstance());
    if (!msiInfoService->disabled) msiInfoService->DoRun();
    if (settings.GetBool(Tag::INSTALL_FROM_CONFIG)) settings.ResolveConfigExePaths();
    SettleChainTags();
    return true;
}

void Controller::MergeUserSettings() {
    InstallSettings& settings = InstallSettings::GetInstance();
    packageUserSettingsPath = GetExeDirectory() + L"\\..\\PackageUserSettings.xml";
    if (settings.MergeFile(packageUserSettingsPath) != 0) return;
    settings.SetBool(Tag::INSTALL_FROM_CONFIG, true);
    settings.SetDevices(settings.GetAllValues(Tag::DEVICE));
    settings.ResolveDriverConfigPaths();
    settings.DeriveInfoCenterLinks();
}

void Controller::TakePrinterFromCommandLine() {
    InstallSettings& settings = InstallSettings::GetInstance();
    if (settings.GetBool(Tag::HIDE_DISCOVERY)) return;
    const CmdLineHelper& commandLine = CmdLineHelper::GetInstance();
    const std::wstring address = commandLine.GetValue(CmdLineHelper::Option::Address);
    if (address.empty()) return;
    settings.SetBool(Tag::HIDE_DISCOVERY, true);
    settings.SetNetworkPort(address, commandLine.GetValue(CmdLineHelper::Option::Port));
}

void Controller::SettleChainTags() {
    InstallSettings& settings = InstallSettings::GetInstance();
    settings.SetBool(settings.IsAmazonSupported() ? Tag::HIDE_SECURITY : Tag::HIDE_CONNECTIVITY, true);
    settings.SetBool(Tag::APPS_ONLY_PACKAGE, false);
    if (DriverInfo::GetInstance().GetDrivers().empty() && !settings.GetBool(Tag::INSTALL_FROM_CONFIG)) {
        settings.SetBool(Tag::APPS_ONLY_PACKAGE, true);
    }
}

int Controller::BuildDialogs() {
    const InstallSettings& settings = InstallSettings::GetInstance();
    const auto add = [&](auto& field, auto page, size_t index, bool isHidden, const wchar_t* failure) {
        field = std::move(page);
        if (!AddDialog(*field, isHidden, index)) LogBasic(failure, LogLevel::Error);
    };
    const bool hideFinal = settings.GetBool(Tag::HIDE_FINAL);
    add(startDlg, std::make_unique<StartDlg>(), 0, settings.GetBool(Tag::HIDE_START),
        L"Add Start dialog failed.");
    add(eulaDlg, std::make_unique<EULADlg>(), 1, settings.GetBool(Tag::HIDE_EULA),
        L"Add Eula dialog failed.");
    add(manufacturerDlg, std::make_unique<ManufacturerDlg>(), 2, true, L"Add Manufacturer dialog failed.");
    add(bypassDlg, std::make_unique<OptionalSoftwareBypassDlg>(), 3, true,
        L"Add Optional Software Bypass dialog failed.");
    add(connectivityDlg, std::make_unique<ConnectivityDlg>(), 4, settings.GetBool(Tag::HIDE_CONNECTIVITY),
        L"Add Connectivity dialog failed.");
    add(discoveryDlg, std::make_unique<DiscoveryDlg>(), 5, true, L"Add Disocovery dialog failed.");
    services.at(5) = std::make_unique<DiscoveryService>(discoveryDlg.get());
    add(addPortDlg, std::make_unique<AddPortDlg>(), 6, true, L"Add AddPort dialog failed.");
    services.at(6) = std::make_unique<AddPortService>(addPortDlg.get());
    add(progressDlg, std::make_unique<ProgressDialog>(), 7, settings.GetBool(Tag::HIDE_PROGRESS),
        L"Add Progress dialog failed.");
    services.at(7) = std::make_unique<InstallService>(progressDlg.get(), MsiInterface::GetInstance());
    add(coreFinishDlg, std::make_unique<FinishDlg>(L"Core Finish Dialog"), 8, hideFinal,
        L"Add Core Finish dialog failed.");
    add(coreRebootDlg, std::make_unique<RebootDlg>(), 9, true, L"Add Core Reboot dialog failed.");
    add(finishDlg, std::make_unique<FinishDlg>(L"Finish Dialog"), 10, hideFinal,
        L"Add Optional software Finish dialog failed.");
    add(rebootDlg, std::make_unique<RebootDlg>(), 11, true, L"Add Reboot dialog failed.");
    return lastPageIndex;
}

bool Controller::AddDialog(InstallDialogEx& page, bool isHidden, size_t index) {
    if (AfxGetApp() == nullptr) return false;
    CWnd* const mainWindow = AfxGetMainWnd();
    if (!page.Create(page.TemplateId(), mainWindow)) return false;
    page.SetParent(*mainWindow);
    // The right and bottom edges serve as width and height, and this is meant: pages get their size so.
    page.MoveWindow(pageRect.left, pageRect.top, pageRect.right, pageRect.bottom);
    dialogs.at(index) = &page;
    page.hidden = isHidden;
    return true;
}

void Controller::UpdateHideFlags() {
    const InstallSettings& settings = InstallSettings::GetInstance();
    const auto hide = [](InstallDialogEx* page, bool isHidden) {
        if (page != nullptr) page->hidden = isHidden;
    };
    hide(addPortDlg.get(), !settings.GetBool(Tag::DIALOG_ADD_PORT));
    hide(manufacturerDlg.get(), !settings.GetBool(Tag::SHOW_MANUFACTURERS));
    hide(bypassDlg.get(), !settings.GetBool(Tag::TAG_DIALOG_SHOW_BYPASS));
    hide(rebootDlg.get(), !settings.GetBool(Tag::REBOOT));
    hide(coreRebootDlg.get(), !settings.GetBool(Tag::REBOOT));
    hide(discoveryDlg.get(), settings.GetBool(Tag::HIDE_DISCOVERY));
    hide(connectivityDlg.get(), settings.GetBool(Tag::HIDE_CONNECTIVITY));
}

bool Controller::Start() {
    lastDialog = BuildDialogs();
    UpdateHideFlags();
    if (silent || discoveryDlg->hidden) DisableDiscovery();
    currentDialog = 0;
    InstallDialogEx* const first = dialogs.front();
    if (first == nullptr) {
        LogBasic(L"Controller::Start, Starting Dialog is NULL", LogLevel::Error);
        Close();
        return false;
    }
    if (!first->hidden && !silent) {
        first->ShowWindow(SW_SHOW);
    } else {
        Next({});
    }
    return true;
}

void Controller::DisableDiscovery() {
    for (size_t index = 0; index <= static_cast<size_t>(lastDialog); ++index) {
        if (dialogs.at(index) != discoveryDlg.get() || !services.at(index)) continue;
        services.at(index)->disabled = true;
        return;
    }
}

InstallDialogEx* Controller::CurrentPage() const {
    return dialogs.at(static_cast<size_t>(currentDialog.load()));
}

Service* Controller::EnabledService(int index) const {
    Service* const service = services.at(static_cast<size_t>(index)).get();
    return service != nullptr && !service->disabled ? service : nullptr;
}

void Controller::RunCurrentService() {
    if (Service* const service = EnabledService(currentDialog)) service->DoRun();
}

void Controller::HideCurrentPage() {
    if (InstallDialogEx* const page = CurrentPage()) page->ShowWindow(SW_HIDE);
}

void Controller::ShowCurrentPage(std::wstring message) {
    CurrentPage()->ReceiveMessage(std::move(message));
    CurrentPage()->ShowWindow(SW_SHOW);
}

// One turn of the loop is one step of the chain; a page that is passed over drops the message.
bool Controller::Next(std::wstring message) {
    for (;; message.clear()) {
        HideCurrentPage();
        // A reboot that the core run asks for waits for the end of the optional run.
        if (CurrentPage() == coreFinishDlg.get() && coreFinishDlg &&
            InstallSettings::GetInstance().GetBool(Tag::OPTIONAL_INSTALL)) {
            coreRebootDlg->hidden = true;
        }
        if (currentDialog >= lastDialog) {
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
        LogAdvanced(L"Controller::Next, Moving from " + Decimal(former) + L" to " + Decimal(former + 1));
        Service* const service = EnabledService(former + 1);
        if (!CurrentPage()->hidden && !silent) {
            ShowCurrentPage(std::move(message));
            if (service != nullptr) service->DoRun();
            return true;
        }
        if (service != nullptr && service->DoRun() == MsiCode::InstallFailure) {
            CopyLogToPackage();
            Finish(false);
            return true;
        }
    }
}

bool Controller::Back(std::wstring message) {
    HideCurrentPage();
    const int former = currentDialog;
    if (former > 0) --currentDialog;
    LogAdvanced(L"Controller::Back, Moving from " + Decimal(former) + L" to " + Decimal(currentDialog));
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
    for (int index = 0; index <= lastDialog; ++index) {
        const InstallDialogEx* const page = dialogs.at(static_cast<size_t>(index));
        if (page == nullptr || page->dialogName != name) continue;
        currentDialog = index;
        break;
    }
    LogAdvanced(L"Controller::GoToSpecifiedDlg, Move to " + Decimal(currentDialog));
    if (CurrentPage() == nullptr) return false;
    Service* const service = EnabledService(currentDialog);
    if (CurrentPage()->hidden || silent) {
        if (service != nullptr) service->DoRun();
        Next(std::move(message));
    } else {
        ShowCurrentPage(std::move(message));
        if (service != nullptr) service->DoRun();
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
    if (!force) {
        if (IsClosingPage()) {
            Finish(false);
            return false;
        }
        if (!ConfirmCancel()) return false;
    }
    LogBasic(L"User chose to cancel the installation.");
    LogAdvanced(L"Controller::Cancel Yes on Are You Sure", LogLevel::Success);
    InstallSettings::GetInstance().SetStrings(
        {{Tag::SHOW_REGISTRATION, L"0"}, {Tag::INSTALL_STATUS, L"CANCELED"}});
    CancelServices();
    if (!IsInstallThreadMovingOn()) Finish(false);
    return true;
}

// The install thread winds down by itself. From the Progress page it then moves the walk; in a silent run the
// walk stands at its end already and waits for the thread, which must not wait there for itself.
bool Controller::IsInstallThreadMovingOn() const {
    const InstallDialogEx* const page = CurrentPage();
    return (page != nullptr && page == progressDlg.get()) || (silent && threadCount > 0);
}

bool Controller::IsClosingPage() const {
    const InstallDialogEx* const page = CurrentPage();
    return page != nullptr && (page == rebootDlg.get() || page == coreRebootDlg.get() ||
                               page == finishDlg.get() || page == coreFinishDlg.get());
}

bool Controller::ConfirmCancel() const {
    const bool asksForOptional = InstallSettings::GetInstance().GetBool(Tag::OPTIONAL_INSTALL) &&
                                 !AppCatalogue::GetInstance()
                                      .Select(L"<ISOPTIONAL>false</ISOPTIONAL><ISSELECTED>true</ISSELECTED>")
                                      .empty();
    const int answer =
        ShowLocalizedMessage(AfxGetMainWnd()->GetSafeHwnd(),
                             asksForOptional ? TextKey::OPTIONAL_SOFTWARE_CANCEL_CONFIRMATION_TEXT
                                             : TextKey::CANCEL_CONFIRMATION_TEXT,
                             TextKey::INSTALL_TITLE, MB_YESNO | MB_ICONWARNING);
    return answer == IDYES;
}

void Controller::CancelServices() {
    for (int index = currentDialog; index >= 0; --index) {
        if (Service* const service = services.at(static_cast<size_t>(index)).get()) service->Cancel();
    }
}

bool Controller::Finish(bool reboot) {
    LogBasic(L"Installation is Finished");
    while (threadCount > 0) SleepAnsweringSentMessages(pollIntervalInMilliseconds);
    Close();
    if (reboot) {
        LogBasic(L"System reboot is required to complete installation. Rebooting..");
        RebootService().DoRun();
    } else {
        FinishService().DoRun();
    }
    return true;
}

void Controller::Close() {
    LogAdvanced(L"Controller::Close");
    RemoveFolder(GetTemporaryFolder() + L"ArdentisKit");
    RemoveFolder(GetTemporaryFolder() + L"TolvaneKit");
    if (AfxGetApp() == nullptr) return;
    if (CWnd* const mainWindow = AfxGetMainWnd()) mainWindow->PostMessage(WM_CLOSE);
    PostQuitMessage(0);
}

// The record is written while the worker still counts: once it does not, the program may end under it.
void Controller::UpdateThreadCount(bool increment) {
    const std::lock_guard guard(threadCountLock);
    const int count = threadCount;
    if (increment) {
        ++threadCount;
        LogAdvanced(L"Thread Count incremented " + Decimal(count + 1));
    } else if (count < 1) {
        LogAdvanced(L"Attempted to decrement below 0 " + Decimal(count));
    } else {
        LogAdvanced(L"Thread Count decremented " + Decimal(count - 1));
        --threadCount;
    }
}

void Controller::CopyLogToPackage() const {
    const std::wstring log = Logger::GetInstance().GetBasicLogPath();
    std::wstring folder = CmdLineHelper::GetInstance().GetValue(CmdLineHelper::Option::PackageDirectory);
    if (folder.empty()) folder = GetExeDirectory();
    if (log.find(L'\\') == std::wstring::npos) return;
    CopyFileTo(folder + L"\\" + std::wstring(FileNameOf(log)), log);
}
