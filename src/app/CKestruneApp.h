// The application object: decides whether this process may run, and brings the wizard up and down.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "CommonLib/Com.h"
#include "app/Collaborators.h"
#include "framework/CWinApp.h"

class KestruneDlg;

class CKestruneApp : public CWinApp {
public:
    CKestruneApp();
    CKestruneApp(const CKestruneApp&) = delete;
    CKestruneApp& operator=(const CKestruneApp&) = delete;
    ~CKestruneApp() override;

    bool InitInstance() override;
    int ExitInstance() override;
    void OnUnhandledException(const std::wstring& where, const std::string& what) noexcept override;

private:
    static bool IsAnotherCopyRunning();
    void BringUpLibraries();
    void CreateMainWindow(const Collaborators& shared, bool silent);

    std::optional<ComApartment> apartment;
    std::unique_ptr<KestruneDlg> mainDialog;
};
