#include "framework/CToolTipCtrl.h"

#include <windows.h>

#include <commctrl.h>

namespace {

// A tool of that window; the size is the one that every version of the common controls takes.
TTTOOLINFOW ToolOf(HWND owner, HWND control) {
    TTTOOLINFOW tool{.cbSize = static_cast<UINT>(TTTOOLINFOW_V2_SIZE), .uFlags = TTF_IDISHWND};
    tool.hwnd = owner;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    return tool;
}

LPARAM AsParameter(TTTOOLINFOW& tool) {
    return reinterpret_cast<LPARAM>(&tool);
}

}  // namespace

bool CToolTipCtrl::Create(const CWnd& parentWindow, DWORD style) {
    const CreationHook hook(*this);
    return CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | style, CW_USEDEFAULT,
                           CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, parentWindow.GetSafeHwnd(), nullptr,
                           GetModuleHandleW(nullptr), nullptr) != nullptr;
}

void CToolTipCtrl::RelayEvent(MSG* message) {
    if (GetSafeHwnd() != nullptr) SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(message));
}

void CToolTipCtrl::AddTool(HWND control, std::wstring text) {
    if (GetSafeHwnd() == nullptr) return;
    TTTOOLINFOW tool = ToolOf(GetParent(control), control);
    tool.lpszText = text.data();
    SendMessage(TTM_ADDTOOLW, 0, AsParameter(tool));
}

void CToolTipCtrl::Activate(bool active) {
    if (GetSafeHwnd() != nullptr) SendMessage(TTM_ACTIVATE, active ? TRUE : FALSE);
}

void CToolTipCtrl::ShowAt(const CWnd& control, std::wstring text) {
    if (GetSafeHwnd() == nullptr) return;
    TTTOOLINFOW tool = ToolOf(control.GetSafeHwnd(), control.GetSafeHwnd());
    tool.uFlags |= TTF_TRACK;
    tool.lpszText = text.data();
    SendMessage(TTM_DELTOOLW, 0, AsParameter(tool));
    SendMessage(TTM_ADDTOOLW, 0, AsParameter(tool));
    RECT area{};
    GetWindowRect(control.GetSafeHwnd(), &area);
    SendMessage(TTM_TRACKPOSITION, 0, MAKELPARAM(area.left, area.bottom));
    SendMessage(TTM_TRACKACTIVATE, TRUE, AsParameter(tool));
}

void CToolTipCtrl::Hide(const CWnd& control) {
    if (GetSafeHwnd() == nullptr) return;
    TTTOOLINFOW tool = ToolOf(control.GetSafeHwnd(), control.GetSafeHwnd());
    SendMessage(TTM_TRACKACTIVATE, FALSE, AsParameter(tool));
}
