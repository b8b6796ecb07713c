#include "framework/CToolTipCtrl.h"

#include <commctrl.h>

bool CToolTipCtrl::Create(const CWnd& parentWindow) {
    const CreationHook hook(*this);
    return CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, CW_USEDEFAULT,
                           CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, parentWindow.GetSafeHwnd(), nullptr,
                           GetModuleHandleW(nullptr), nullptr) != nullptr;
}

void CToolTipCtrl::AddTool(HWND control, const std::wstring& text) {
    std::wstring writable = text;
    TOOLINFOW tool{.cbSize = TTTOOLINFOW_V1_SIZE,
                   .uFlags = TTF_IDISHWND,
                   .hwnd = GetParent(control),
                   .uId = reinterpret_cast<UINT_PTR>(control)};
    tool.lpszText = writable.data();
    SendMessage(TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void CToolTipCtrl::RelayEvent(MSG* message) {
    if (GetSafeHwnd() != nullptr) SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(message));
}
