// The system's tool tips.
#pragma once

#include <string>

#include "framework/CWnd.h"

class CToolTipCtrl : public CWnd {
public:
    // False if the system refuses.
    bool Create(const CWnd& parentWindow);
    // Shows the text while the pointer rests on the control.
    void AddTool(HWND control, const std::wstring& text);
    // Lets the tool tips see a message of the program.
    void RelayEvent(MSG* message);
};
