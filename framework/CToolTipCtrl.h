// The system's tool tips.
#pragma once

#include <string>

#include "framework/CWnd.h"

class CToolTipCtrl : public CWnd {
public:
    // Takes styles beside those of every tool tip. False if the system refuses; the other operations then do
    // nothing.
    [[nodiscard]] bool Create(const CWnd& parentWindow, DWORD style = 0);
    // Lets the tool tips see a message of the program.
    void RelayEvent(MSG* message);
    // Gives a control of the parent its tip.
    void AddTool(HWND control, std::wstring text);
    void Activate(bool active);

    // Shows a text below the left end of a control, until it is hidden.
    void ShowAt(const CWnd& control, std::wstring text);
    void Hide(const CWnd& control);
};
