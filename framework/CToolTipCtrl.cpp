#include "framework/CToolTipCtrl.h"

#include <commctrl.h>

bool CToolTipCtrl::Create(const CWnd& parentWindow) {
    const CreationHook hook(*this);
    return CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, CW_USEDEFAULT,
                           CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, parentWindow.GetSafeHwnd(), nullptr,
                           GetModuleHandleW(nullptr), nullptr) != nullptr;
}

void CToolTipCtrl::RelayEvent(MSG* message) {
    if (GetSafeHwnd() != nullptr) SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(message));
}
