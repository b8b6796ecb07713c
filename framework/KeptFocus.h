// The focus over the life of a modal window.
#pragma once

#include <windows.h>

// Gives the focus back at the end of its life to the window that had it at the start, if that still takes it.
// Belongs to the thread of that window.
class KeptFocus {
public:
    KeptFocus() = default;
    KeptFocus(const KeptFocus&) = delete;
    KeptFocus& operator=(const KeptFocus&) = delete;
    ~KeptFocus() {
        if (IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE) SetFocus(window);
    }

private:
    HWND window = GetFocus();
};
