#include "framework/CMFCLinkCtrl.h"

#include <windows.h>

#include <shellapi.h>

#include <utility>

namespace {

constexpr COLORREF linkColour = RGB(0x00, 0x66, 0xCC);

Font& UnderlinedFont() {
    static Font font;
    return font;
}

Font Underlined(HFONT font) {
    LOGFONTW description{};
    GetObjectW(font, sizeof(description), &description);
    description.lfUnderline = TRUE;
    return Font(CreateFontIndirectW(&description));
}

}  // namespace

void CMFCLinkCtrl::SetUnderlinedFont(Font font) {
    UnderlinedFont() = std::move(font);
}

const MessageMap& CMFCLinkCtrl::GetMessageMap() const {
    using On = EventsOf<CMFCLinkCtrl>;
    static const MessageMap map(nullptr, {On::Message(WM_SETCURSOR, &CMFCLinkCtrl::OnSetCursor)});
    return map;
}

void CMFCLinkCtrl::PreSubclassWindow() {
    const LONG_PTR style = GetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE);
    SetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE, (style & ~static_cast<LONG_PTR>(BS_TYPEMASK)) | BS_OWNERDRAW);
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
    const Font own = Underlined(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
    const SelectedObject font(item.hDC, UnderlinedFont() ? UnderlinedFont().get() : own.get());
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, UnderlinedFont() ? GetSysColor(COLOR_HOTLIGHT) : linkColour);
    const std::wstring text = GetWindowText();
    DrawTextW(item.hDC, text.c_str(), static_cast<int>(text.size()), &area,
              DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &item.rcItem);
}

void CMFCLinkCtrl::OnClicked() {
    if (!url.empty()) ShellExecuteW(GetSafeHwnd(), L"open", url.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}
