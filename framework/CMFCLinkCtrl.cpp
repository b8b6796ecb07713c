#include "framework/CMFCLinkCtrl.h"

#include <windows.h>

#include <shellapi.h>

#include "framework/FocusRing.h"
#include "framework/Handles.h"
#include "framework/HighContrast.h"
#include "framework/Resolution.h"
#include "framework/Spoken.h"

namespace {

constexpr COLORREF linkColour = RGB(0x00, 0x66, 0xCC);

constexpr int contrastPoints = 8;

Font Underlined(HFONT font) {
    LOGFONTW description{};
    GetObjectW(font, sizeof(description), &description);
    description.lfUnderline = TRUE;
    return Font(CreateFontIndirectW(&description));
}

Font ContrastFont(HWND link) {
    return Font(CreateFontW(-MulDiv(contrastPoints, ResolutionOf(link), 72), 0, 0, 0, FW_NORMAL, FALSE, TRUE,
                            FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                            DEFAULT_PITCH, L"Arial"));
}

COLORREF TextColour(const DRAWITEMSTRUCT& item) {
    if (!IsHighContrastOn()) return linkColour;
    return GetSysColor((item.itemState & ODS_DISABLED) != 0 ? COLOR_GRAYTEXT : COLOR_HOTLIGHT);
}

}  // namespace

const MessageMap& CMFCLinkCtrl::GetMessageMap() const {
    using On = EventsOf<CMFCLinkCtrl>;
    static const MessageMap map(nullptr, {On::Message(WM_SETCURSOR, &CMFCLinkCtrl::OnSetCursor)});
    return map;
}

void CMFCLinkCtrl::PreSubclassWindow() {
    const LONG_PTR style = GetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE);
    SetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE, (style & ~static_cast<LONG_PTR>(BS_TYPEMASK)) | BS_OWNERDRAW);
    SpeakAsLink(GetSafeHwnd());
}

LRESULT CMFCLinkCtrl::OnSetCursor(WPARAM, LPARAM) {
    SetCursor(LoadCursorW(nullptr, IDC_HAND));
    return TRUE;
}

void CMFCLinkCtrl::DrawItem(const DRAWITEMSTRUCT& item) {
    RECT area = item.rcItem;
    // The ground is the dialog's, as it is under a text.
    const LRESULT ground =
        ::SendMessageW(GetParent(GetSafeHwnd()), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(item.hDC),
                       reinterpret_cast<LPARAM>(GetSafeHwnd()));
    FillRect(item.hDC, &area, reinterpret_cast<HBRUSH>(ground));
    const Font underlined = IsHighContrastOn() ? ContrastFont(GetSafeHwnd())
                                               : Underlined(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
    const SelectedObject font(item.hDC, underlined.get());
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, TextColour(item));
    const std::wstring text = GetWindowText();
    DrawTextW(item.hDC, text.c_str(), static_cast<int>(text.size()), &area,
              DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRing(item.hDC, item.rcItem);
}

void CMFCLinkCtrl::OnClicked() {
    if (!url.empty()) ShellExecuteW(GetSafeHwnd(), L"open", url.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}
