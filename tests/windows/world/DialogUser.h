// The user who answers the dialog that a test opens on its own thread.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <thread>

// Waits on a thread of its own for a dialog of the thread that made this object, other than the given one,
// and does with it what the test says. If none comes, the test fails.
class DialogUser {
public:
    DialogUser(HWND other, std::function<void(HWND)> deed);
    DialogUser(const DialogUser&) = delete;
    DialogUser& operator=(const DialogUser&) = delete;
    ~DialogUser();

private:
    std::thread thread;
};

// The text of a window of this process.
std::wstring TextOf(HWND window);

// The name of a window's class.
std::wstring ClassOf(HWND window);

// Whether a control of the program shows its text as a link.
bool IsLink(HWND control);

// Clicks on a button of the dialog.
void ClickOn(HWND dialog, int button);
