// The system's tool tips.
#pragma once

#include "framework/CWnd.h"

class CToolTipCtrl : public CWnd {
public:
    // False if the system refuses; the other operation then does nothing.
    bool Create(const CWnd& parentWindow);
    // Lets the tool tips see a message of the program.
    void RelayEvent(MSG* message);
};
