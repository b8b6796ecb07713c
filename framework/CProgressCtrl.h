// The system's progress bar.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "framework/CWnd.h"

class CProgressCtrl : public CWnd {
public:
    // The older of the two range messages, whose bounds have 16 bits.
    void SetRange(short low, short high) { SendMessage(PBM_SETRANGE, 0, MAKELPARAM(low, high)); }
    void GetRange(int& low, int& high) const {
        PBRANGE range{};
        SendMessage(PBM_GETRANGE, TRUE, reinterpret_cast<LPARAM>(&range));
        low = range.iLow;
        high = range.iHigh;
    }
    void SetPos(int position) { SendMessage(PBM_SETPOS, static_cast<WPARAM>(position)); }
};
