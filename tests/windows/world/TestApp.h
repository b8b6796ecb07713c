// An application object for tests of windows.
#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "framework/CWinApp.h"
#include "framework/CWnd.h"

// Keeps the exceptions that reach the edge of the program's frames.
class TestApp : public CWinApp {
public:
    using CWinApp::SetMainWnd;

    void OnUnhandledException(const std::wstring& where, const std::string& what) noexcept override;

    // Each as the place and, after a colon, what it was.
    std::vector<std::string> Exceptions() const;

private:
    mutable std::mutex lock;
    std::vector<std::string> exceptions;
};

// Handles the messages that wait for this thread.
void PumpMessages();

// The visible message box or dialog of that thread other than this one, or null.
HWND FindDialogOf(DWORD thread, HWND other);
