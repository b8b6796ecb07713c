// The application object, its command line and its message loop.
#pragma once

#include <atomic>
#include <string>

#include "framework/CWnd.h"

// Receives the parameters of the command line one by one.
class CCommandLineInfo {
public:
    virtual ~CCommandLineInfo() = default;
    // The parameter without its one leading "-" or "/", whether it had one, and whether it is the last.
    virtual void ParseParam(const std::wstring& parameter, bool isFlag, bool isLast) = 0;
};

// One object of a class derived from this exists per process, and makes itself known in its constructor.
class CWinApp {
public:
    CWinApp();
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    virtual ~CWinApp();

    // Registers the program with the restart manager if the flags ask for it. True: enter the message loop.
    virtual bool InitInstance();
    // Runs the message loop until the quit message; returns that message's code.
    virtual int Run();
    // Runs last, also when InitInstance has returned false. Returns the exit code of the process.
    virtual int ExitInstance();
    // Offers a posted message to the windows between the one it is for and the main window, as far as they
    // are this thread's own.
    virtual bool PreTranslateMessage(MSG* message);
    // Called for an exception that reached the edge of the program's own frames; never throws.
    virtual void OnUnhandledException(const std::wstring& where, const std::string& what) noexcept;

    // Hands the process's parameters to the receiver.
    void ParseCommandLine(CCommandLineInfo& receiver) const;

    // Inside a catch block: reports to the application object the exception being handled.
    static void ReportUnhandledException(const std::wstring& where) noexcept;

    CWnd* GetMainWnd() const { return mainWindow; }

protected:
    void SetMainWnd(CWnd* window) { mainWindow = window; }

    // 1: the system may start the program again after it had to end it.
    unsigned restartManagerSupportFlags = 0;

private:
    // Set by the main thread, asked for by workers.
    std::atomic<CWnd*> mainWindow = nullptr;
    int exitCode = 0;
};

// The application object, or null before it is made.
CWinApp* AfxGetApp();

// The application's main window, or null.
CWnd* AfxGetMainWnd();

// Closes the main window and ends the message loop, once what is under way now is done. Without an
// application object there is nothing to end.
void EndMessageLoop();

// The body of the program: InitInstance, Run, ExitInstance. Returns the exit code of the process.
int AfxWinMain();
