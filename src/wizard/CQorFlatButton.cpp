#include "wizard/CQorFlatButton.h"

#include <windows.h>

#include <windowsx.h>

#include "framework/FocusRing.h"
#include "framework/Handles.h"
#include "framework/HighContrast.h"
#include "wizard/ButtonFace.h"

namespace {

constexpr int focusInset = 5;
constexpr int pictureFocusInset = 1;
constexpr int pressedShift = 2;

COLORREF ToColorRef(RgbColour colour) {
    return RGB(static_cast<BYTE>(colour >> 16), static_cast<BYTE>(colour >> 8), static_cast<BYTE>(colour));
}

bool Has(const DRAWITEMSTRUCT& item, UINT state) {
    return (item.itemState & state) != 0;
}

ButtonState StateOf(const DRAWITEMSTRUCT& item) {
    return {.selected = Has(item, ODS_SELECTED),
            .hot = Has(item, ODS_HOTLIGHT),
            .focused = Has(item, ODS_FOCUS),
            .disabled = Has(item, ODS_DISABLED)};
}

RgbColour SystemColour(int place) {
    const COLORREF colour = GetSysColor(place);
    return RgbColour{GetRValue(colour)} << 16 | RgbColour{GetGValue(colour)} << 8 | GetBValue(colour);
}

// In many themes the face under the mouse has the colour of the texts.
COLORREF TextUnderTheMouse() {
    return ToColorRef(ReadableOn(SystemColour(COLOR_BTNHIGHLIGHT), SystemColour(COLOR_BTNTEXT),
                                 SystemColour(COLOR_BTNFACE)));
}

COLORREF CaptionColour(const DRAWITEMSTRUCT& item) {
    if (!IsHighContrastOn()) return RGB(255, 255, 255);
    if (Has(item, ODS_DISABLED)) return GetSysColor(COLOR_GRAYTEXT);
    if (Has(item, ODS_SELECTED)) return GetSysColor(COLOR_HIGHLIGHTTEXT);
    return Has(item, ODS_HOTLIGHT) ? TextUnderTheMouse() : GetSysColor(COLOR_BTNTEXT);
}

COLORREF ContrastFace(const DRAWITEMSTRUCT& item) {
    if (Has(item, ODS_DISABLED)) return GetSysColor(COLOR_BTNFACE);
    if (Has(item, ODS_SELECTED)) return GetSysColor(COLOR_HIGHLIGHT);
    return GetSysColor(Has(item, ODS_HOTLIGHT) ? COLOR_BTNHIGHLIGHT : COLOR_BTNFACE);
}

// Asks the system to say when the mouse leaves. Returns false where it has left already, and nobody says so.
bool TracksLeave(HWND button) {
    TRACKMOUSEEVENT tracking{.cbSize = sizeof(TRACKMOUSEEVENT), .dwFlags = TME_LEAVE, .hwndTrack = button};
    TrackMouseEvent(&tracking);
    TRACKMOUSEEVENT kept{.cbSize = sizeof(TRACKMOUSEEVENT), .dwFlags = TME_QUERY};
    TrackMouseEvent(&kept);
    return kept.hwndTrack == button && (kept.dwFlags & TME_LEAVE) != 0;
}

}  // namespace

const MessageMap& CQorFlatButton::GetMessageMap() const {
    using On = EventsOf<CQorFlatButton>;
    static const MessageMap map(nullptr, {
                                             On::Message(WM_MOUSEMOVE, &CQorFlatButton::OnMouseMove),
                                             On::Message(WM_MOUSELEAVE, &CQorFlatButton::OnMouseLeave),
                                         });
    return map;
}

bool CQorFlatButton::IsFlat() const {
    return (GetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE) & BS_FLAT) != 0;
}

void CQorFlatButton::PreSubclassWindow() {
    const LONG_PTR style = GetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE);
    SetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE, (style & ~static_cast<LONG_PTR>(BS_TYPEMASK)) | BS_OWNERDRAW);
}

LRESULT CQorFlatButton::OnMouseMove(WPARAM keys, LPARAM position) {
    if (!IsFlat()) return Default();
    POINT point{GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    ClientToScreen(GetSafeHwnd(), &point);
    if (WindowFromPoint(point) != GetSafeHwnd()) {
        SendMessage(BM_SETSTATE, FALSE);
        return Default();
    }
    constexpr WPARAM buttons = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON;
    if ((keys & buttons) == MK_LBUTTON) SendMessage(BM_SETSTATE, TRUE);
    if ((keys & buttons) == MK_RBUTTON) SendMessage(BM_SETSTATE, FALSE);
    if (!hovering) {
        DrawHot();
        hovering = true;
        if (!TracksLeave(GetSafeHwnd())) PostMessage(WM_MOUSELEAVE);
    }
    return Default();
}

LRESULT CQorFlatButton::OnMouseLeave(WPARAM, LPARAM) {
    InvalidateRect(GetSafeHwnd(), nullptr, TRUE);
    hovering = false;
    SendMessage(BM_SETSTATE, FALSE);
    return 0;
}

void CQorFlatButton::DrawHot() {
    const WindowDc context(GetSafeHwnd());
    const bool hasFocus = GetFocus() == GetSafeHwnd();
    DRAWITEMSTRUCT item{.CtlType = ODT_BUTTON,
                        .itemState = ODS_HOTLIGHT | (hasFocus ? ODS_FOCUS : 0U),
                        .hwndItem = GetSafeHwnd(),
                        .hDC = context.get()};
    GetClientRect(GetSafeHwnd(), &item.rcItem);
    const SelectedObject font(context.get(), reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
    DrawItem(item);
}

void CQorFlatButton::DrawItem(const DRAWITEMSTRUCT& given) {
    if (!IsFlat() || given.CtlType != ODT_BUTTON) return;
    DRAWITEMSTRUCT item = given;
    // The system does not know what the mouse means here, and a paint must not take the hot face away.
    if (hovering && !Has(item, ODS_DISABLED)) item.itemState |= ODS_HOTLIGHT;
    DrawFrame(item);
    const auto icon = reinterpret_cast<HICON>(SendMessage(BM_GETIMAGE, IMAGE_ICON));
    if (icon != nullptr) {
        DrawIconEx(item.hDC, 0, 0, icon, 0, 0, 0, nullptr, DI_NORMAL);
    } else {
        DrawCaption(item);
    }
    if (Has(item, ODS_FOCUS)) {
        // A picture takes the room within.
        const int inset = icon != nullptr ? pictureFocusInset : focusInset;
        RECT inner = item.rcItem;
        InflateRect(&inner, -inset, -inset);
        DrawFocusRing(item.hDC, inner);
    }
}

void CQorFlatButton::DrawFrame(const DRAWITEMSTRUCT& item) const {
    const ButtonFace face = FlatButtonFace(StateOf(item), secondary);
    COLORREF penColour = ToColorRef(face.colour);
    COLORREF brushColour = penColour;
    if (IsHighContrastOn()) {
        penColour = GetSysColor(Has(item, ODS_DISABLED) ? COLOR_INACTIVEBORDER : COLOR_ACTIVEBORDER);
        brushColour = ContrastFace(item);
    }
    const Pen pen(CreatePen(PS_INSIDEFRAME, face.frameWidth, penColour));
    const Brush brush(CreateSolidBrush(brushColour));
    const SelectedObject selectedPen(item.hDC, pen.get());
    const SelectedObject selectedBrush(item.hDC, brush.get());
    Rectangle(item.hDC, item.rcItem.left, item.rcItem.top, item.rcItem.right, item.rcItem.bottom);
}

void CQorFlatButton::DrawCaption(const DRAWITEMSTRUCT& item) const {
    RECT area = item.rcItem;
    // By design: a green button does not move its text when it is pressed.
    if (Has(item, ODS_SELECTED) && secondary) {
        area.left += pressedShift;
        area.top += pressedShift;
    }
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, CaptionColour(item));
    const std::wstring text = sign.empty() ? GetWindowText() : sign;
    UINT format = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
    if (Has(item, ODS_NOACCEL)) format |= DT_HIDEPREFIX;
    DrawTextW(item.hDC, text.c_str(), static_cast<int>(text.size()), &area, format);
}
