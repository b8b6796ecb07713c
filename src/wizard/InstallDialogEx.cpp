#include "wizard/InstallDialogEx.h"

#include "settings/Localizer.h"

std::uint32_t InstallDialogEx::ReceiveMessage(std::wstring) {
    return 0;
}

void InstallDialogEx::SetLocalizedText(HWND window, std::wstring_view key) {
    ::SetWindowTextW(window, GetLocalizedText(key).c_str());
}

std::wstring InstallDialogEx::GetLocalizedText(std::wstring_view key) const {
    return Localizer::GetInstance().GetString(key);
}

void InstallDialogEx::RedrawControl(HWND control) {
    RECT area{};
    GetWindowRect(control, &area);
    MapWindowPoints(nullptr, GetSafeHwnd(), reinterpret_cast<POINT*>(&area), 2);
    InvalidateRect(GetSafeHwnd(), &area, TRUE);
    UpdateWindow(GetSafeHwnd());
}

void InstallDialogEx::PreSubclassWindow() {
    if (IsRightToLeft()) SetWindowLongPtrW(GetSafeHwnd(), GWL_EXSTYLE, WS_EX_LAYOUTRTL);
}
