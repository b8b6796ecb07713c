// A control that is changed in many steps and drawn once.
#pragma once

#include "framework/CWnd.h"

// Keeps the control from drawing each step of a change, and draws it anew at the end.
class HeldDrawing {
public:
    explicit HeldDrawing(const CWnd& heldControl) : control(heldControl) {
        control.SendMessage(WM_SETREDRAW, FALSE);
    }
    HeldDrawing(const HeldDrawing&) = delete;
    HeldDrawing& operator=(const HeldDrawing&) = delete;
    ~HeldDrawing() {
        control.SendMessage(WM_SETREDRAW, TRUE);
        InvalidateRect(control.GetSafeHwnd(), nullptr, TRUE);
    }

private:
    const CWnd& control;
};
