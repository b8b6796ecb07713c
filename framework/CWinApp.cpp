#include "framework/CWinApp.h"

#include <windows.h>

#include <shellapi.h>

#include <exception>

#include "framework/Handles.h"

namespace {

// A worker may outlive the application object.
std::atomic<CWinApp*> currentApplication = nullptr;

bool IsOfThisThread(HWND window) {
    return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

bool IsSwitchCharacter(wchar_t character) {
    return character == L'-' || character == L'/';
}

}  // namespace

CWinApp::CWinApp() {
    currentApplication = this;
}

CWinApp::~CWinApp() {
    currentApplication = nullptr;
}

bool CWinApp::InitInstance() {
    if ((restartManagerSupportFlags & 1U) != 0) RegisterApplicationRestart(nullptr, 0);
    return true;
}

int CWinApp::Run() {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (PreTranslateMessage(&message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    exitCode = static_cast<int>(message.wParam);
    return exitCode;
}

int CWinApp::ExitInstance() {
    return exitCode;
}

bool CWinApp::PreTranslateMessage(MSG* message) {
    for (HWND window = message->hwnd; window != nullptr && IsOfThisThread(window);
         window = GetParent(window)) {
        CWnd* const object = CWnd::FromHandle(window);
        if (object != nullptr && object->PreTranslateMessage(message)) return true;
        if (object != nullptr && object == mainWindow) return false;
    }
    return false;
}

void CWinApp::OnUnhandledException(const std::wstring&, const std::string&) noexcept {}

void CWinApp::ParseCommandLine(CCommandLineInfo& receiver) const {
    int count = 0;
    const LocalMemory memory(CommandLineToArgvW(GetCommandLineW(), &count));
    const auto* const arguments = static_cast<const wchar_t* const*>(memory.get());
    for (int index = 1; arguments != nullptr && index < count; ++index) {
        const std::wstring argument = arguments[index];
        const bool isFlag = !argument.empty() && IsSwitchCharacter(argument.front());
        receiver.ParseParam(isFlag ? argument.substr(1) : argument, isFlag, index + 1 == count);
    }
}

void CWinApp::ReportUnhandledException(const std::wstring& where) noexcept {
    CWinApp* const app = currentApplication;
    if (app == nullptr) return;
    try {
        std::rethrow_exception(std::current_exception());
    } catch (const std::exception& exception) {
        app->OnUnhandledException(where, exception.what());
    } catch (...) {
        app->OnUnhandledException(where, "unknown exception");
    }
}

CWinApp* AfxGetApp() {
    return currentApplication;
}

CWnd* AfxGetMainWnd() {
    const CWinApp* const app = currentApplication;
    return app == nullptr ? nullptr : app->GetMainWnd();
}

void EndMessageLoop() {
    if (currentApplication == nullptr) return;
    if (CWnd* const mainWindow = AfxGetMainWnd()) mainWindow->PostMessage(WM_CLOSE);
    PostQuitMessage(0);
}

int AfxWinMain() {
    CWinApp* const app = AfxGetApp();
    try {
        if (app->InitInstance()) app->Run();
    } catch (...) {
        CWinApp::ReportUnhandledException(L"start");
    }
    return app->ExitInstance();
}
