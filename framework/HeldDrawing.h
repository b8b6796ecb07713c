// A control that is changed in many steps and drawn once.
#pragma once

#include "framework/CWnd.h"

// Keeps the control from drawing each step of a change, and draws it anew at the end. A hidden control draws
// nothing and is left alone: to switch the drawing on would show it.
class HeldDrawing {
public:
    explicit HeldDrawing(const CWnd& heldControl)
        : control(heldControl),
          isShown((GetWindowLongPtrW(heldControl.GetSafeHwnd(), GWL_STYLE) & WS_VISIBLE) != 0) {
        if (isShown) control.SendMessage(WM_SETREDRAW, FALSE);
    }
    HeldDrawing(const HeldDrawing&) = delete;
    HeldDrawing& operator=(const HeldDrawing&) = delete;
    ~HeldDrawing() {
        if (!isShown) return;
        control.SendMessage(WM_SETREDRAW, TRUE);
        InvalidateRect(control.GetSafeHwnd(), nullptr, TRUE);
    }

private:
    const CWnd& control;
    bool isShown;
};
