#include "app/CKestruneApp.h"

#include <windows.h>

#include <commctrl.h>
#include <objbase.h>

#include "CommonLib/Exception.h"
#include "CommonLib/Logger.h"
#include "CommonLib/Mutex.h"
#include "CommonLib/SecurityEveryone.h"
#include "CommonLib/SingleInstance.h"
#include "CommonLib/SystemText.h"
#include "CommonLib/UserRights.h"
#include "CommonLib/Win32Exception.h"
#include "app/Preparation.h"
#include "app/StartUp.h"
#include "app/WizardChain.h"
#include "framework/SystemLibrary.h"
#include "framework/TextSize.h"
#include "resources/resource.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "settings/SettingsFiles.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "wizard/KestruneDlg.h"
#include "wizard/LocalizedMessage.h"

namespace {

constexpr DWORD allControlClasses = 0xFF;

// What other copies find; held until the process ends.
Mutex singleInstance;

void LogStartException(const Exception& exception) {
    LogBasic(L"Exception in CKestruneApp::InitInstance error code = " + std::to_wstring(exception.getCode()),
             LogLevel::Error);
}

}  // namespace

CKestruneApp::CKestruneApp() {
    restartManagerSupportFlags = 1;
}

CKestruneApp::~CKestruneApp() = default;

bool CKestruneApp::InitInstance() {
    RestrictLibrarySearch();
    const Collaborators shared = TheCollaborators();
    if (LoadDefaults(shared.settings) != 0) return false;
    if (!IsUserAdministrator()) {
        ShowLocalizedMessage(shared.localizer, nullptr, TextKey::PERMISSION_ERROR_TEXT,
                             TextKey::PERMISSION_ERROR_TITLE);
        return false;
    }
    if (IsAnotherCopyRunning()) {
        LogBasic(L"There is another instance of Kestrune running", LogLevel::Error);
        ShowLocalizedMessage(shared.localizer, nullptr, TextKey::MULTIINSTANCE_ERROR_TEXT,
                             TextKey::MULTIINSTANCE_ERROR_TITLE);
        return false;
    }
    BringUpLibraries();
    ParseCommandLine(shared.commandLine);
    shared.localizer.SetLanguageOption(shared.commandLine.GetValue(CmdLineHelper::Option::Language));
    const bool silent = InitializeWizard(shared);

    if (LacksPrinter(shared.settings, PrinterNamedIn(shared.commandLine))) return false;
    CreateMainWindow(shared, silent);
    return true;
}

// The mutex that is not there is the normal case, and it leaves its error in the log of every first start.
// Opening and creating are not one step: of two copies started in the same instant both may open none, and
// only one of them creates it.
bool CKestruneApp::IsAnotherCopyRunning() {
    try {
        singleInstance.openMutex(singleInstanceName);
        return true;
    } catch (const Exception& exception) {
        LogStartException(exception);
    }
    try {
        singleInstance.SetName(singleInstanceName);
        SecurityEveryone everyone;
        singleInstance.createMutex(everyone.getAttributes(), singleInstanceName);
        return singleInstance.WasThereBefore();
    } catch (const Win32Exception& exception) {
        LogStartException(exception);
    }
    return false;
}

void CKestruneApp::BringUpLibraries() {
    const INITCOMMONCONTROLSEX controls{.dwSize = sizeof(INITCOMMONCONTROLSEX), .dwICC = allControlClasses};
    InitCommonControlsEx(&controls);
    // The main thread opens links and folders through the shell, which wants COM.
    apartment.emplace(COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    CWinApp::InitInstance();
}

void CKestruneApp::CreateMainWindow(const Collaborators& shared, bool silent) {
    FollowTextSize(IDD_MAIN);
    mainDialog = std::make_unique<KestruneDlg>(shared.controller, shared.localizer);
    static_cast<void>(mainDialog->Create(IDD_MAIN, nullptr));
    SetMainWnd(mainDialog.get());
    Chain chain = MakeChain(shared);
    chain.ends.showWindow = [window = mainDialog.get()] {
        window->ShowWindow(SW_SHOW);
        RedrawWindow(window->GetSafeHwnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    };
    shared.controller.Start(std::move(chain), silent);
    mainDialog->ShowWindow(shared.settings.GetBool(Tag::SILENT_INSTALL) ? SW_HIDE : SW_SHOW);
}

int CKestruneApp::ExitInstance() {
    // The pages go first: they refer to what follows. So does a worker that is still at work, as after a walk
    // that broke off; everything but the windows then stays until the process is gone.
    SetMainWnd(nullptr);
    if (mainDialog) mainDialog->DestroyWindow();
    Controller& controller = Controller::GetInstance();
    // A walk that broke off has not come to the place where this is done.
    controller.CloseServices();
    if (controller.ThreadCount() == 0) {
        mainDialog.reset();
        InstallSettings::DestroyInstance();
        Localizer::DestroyInstance();
        Logger::DestroyInstance();
        CmdLineHelper::DestroyInstance();
    } else {
        static_cast<void>(mainDialog.release());
    }
    apartment.reset();
    return CWinApp::ExitInstance();
}

void CKestruneApp::OnUnhandledException(const std::wstring& where, const std::string& what) noexcept {
    try {
        LogBasic(L"Unhandled exception in the " + where + L": " + Utf8ToWide(what), LogLevel::Error);
    } catch (...) {
        // Nothing is left to report it to.
        return;
    }
}
