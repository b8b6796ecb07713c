// Drives the program as a user meets it: from outside, by its windows.
#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "framework/Handles.h"

struct MessageBoxOnScreen {
    HWND window = nullptr;
    std::wstring title;
    std::wstring text;
};

// The token of this process without the right to act as an administrator.
KernelHandle RestrictedToken();

// Every wait has a limit; running into it fails the test. What is still running at the end is killed, since
// the next test starts the program again.
class WizardDriver {
public:
    explicit WizardDriver(std::filesystem::path programPath) : program(std::move(programPath)) {}
    ~WizardDriver() { Kill(); }
    WizardDriver(const WizardDriver&) = delete;
    WizardDriver& operator=(const WizardDriver&) = delete;

    // Starts the program in its own folder, as a double click does, or in another working folder.
    void Start(const std::wstring& arguments = {}, const std::filesystem::path& workingFolder = {});
    // Makes the process, which does nothing until it is let go.
    void StartHeld();
    void LetGo();
    // Starts the program for a user who is no administrator.
    void StartRestricted();
    bool IsRunning() const;
    // Waits for the program's end, or kills it at the limit and fails.
    void WaitForEnd();
    // Ends the program as a task manager does.
    void Kill();
    // The exit code of the program that has ended.
    DWORD ExitCode() const;
    HANDLE Process() const { return process.get(); }

    // The message box that the program shows now, if it does.
    std::optional<MessageBoxOnScreen> FindBox() const;
    MessageBoxOnScreen WaitForBox() const;
    // Waits for a box and presses the button of that id, such as IDOK; gives what the box said.
    MessageBoxOnScreen Answer(int button) const;

    HWND MainWindow() const;
    // The control of that id on the page that is shown, or null.
    HWND FindControl(int id) const;
    HWND WaitForControl(int id) const;
    // Waits until the wizard has done what it was at, so that no half of it is seen. False if it does not
    // answer.
    bool Settle() const;
    // Clicks the control of that id as soon as the page shows it enabled.
    void Press(int id) const;
    // Presses a key, given as its virtual code, in the control that has the focus.
    void PressKey(WPARAM key) const;
    // Makes the wizard the window that the keyboard speaks to, and waits until it is.
    void BringToFront() const;
    // The control of the wizard that has the focus, or null.
    HWND Focus() const;
    static std::wstring TextOf(HWND window);
    // The text of a cell of a list, empty if there is no such cell.
    std::wstring CellOf(HWND list, int row, int column) const;
    // The heading of a column of a list.
    std::wstring HeadingOf(HWND list, int column) const;
    // Selects the row of a list.
    void SelectRow(HWND list, int row) const;
    // How far the text has been scrolled, in the units of its scroll bar.
    int ScrollPositionOf(HWND text) const;
    // The colour on the screen at that place of the window, in pixels from its top left corner.
    static COLORREF PixelOf(HWND window, int x, int y);
    // Chooses "Close" from the main window's system menu.
    void CloseMainWindow() const;

private:
    void Create(const std::wstring& arguments, const std::filesystem::path& workingFolder, DWORD flags);
    void KeepProcess(const PROCESS_INFORMATION& information);

    std::filesystem::path program;
    KernelHandle process;
    KernelHandle firstThread;
    DWORD processId = 0;
};
