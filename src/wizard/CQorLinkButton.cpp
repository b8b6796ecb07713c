#include "wizard/CQorLinkButton.h"

#include "framework/CImage.h"
#include "framework/FocusRing.h"
#include "framework/Handles.h"
#include "framework/HighContrast.h"
#include "framework/Resolution.h"
#include "framework/Spoken.h"

namespace {

constexpr COLORREF buttonLinkColour = RGB(0x00, 0x66, 0xCC);
constexpr COLORREF white = RGB(255, 255, 255);
constexpr wchar_t missingPictureSign[] = L"?";

struct LinkColours {
    COLORREF pen = white;
    COLORREF brush = white;
    COLORREF text = buttonLinkColour;
};

LinkColours ColoursFor(const DRAWITEMSTRUCT& item) {
    if (!IsHighContrastOn()) return {};
    const bool disabled = (item.itemState & ODS_DISABLED) != 0;
    const bool hot = (item.itemState & ODS_HOTLIGHT) != 0;
    return {.pen = GetSysColor(disabled ? COLOR_INACTIVEBORDER : COLOR_ACTIVEBORDER),
            .brush = GetSysColor(hot ? COLOR_BTNHIGHLIGHT : COLOR_BTNFACE),
            .text = GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_HOTLIGHT)};
}

}  // namespace

void CQorLinkButton::PreSubclassWindow() {
    const LONG_PTR style = GetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE);
    SetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE, (style & ~static_cast<LONG_PTR>(BS_TYPEMASK)) | BS_OWNERDRAW);
    SpeakAsLink(GetSafeHwnd());
}

void CQorLinkButton::SetImagePath(const std::wstring& path) {
    imagePath = path.substr(0, longestPath);
    ForgetSpoken(GetSafeHwnd());
}

void CQorLinkButton::DrawItem(const DRAWITEMSTRUCT& item) {
    const LinkColours colours = ColoursFor(item);
    const Pen pen(CreatePen(PS_INSIDEFRAME, 1, colours.pen));
    const Brush brush(CreateSolidBrush(colours.brush));
    const SelectedObject selectedPen(item.hDC, pen.get());
    const SelectedObject selectedBrush(item.hDC, brush.get());
    Rectangle(item.hDC, item.rcItem.left, item.rcItem.top, item.rcItem.right, item.rcItem.bottom);

    ATL::CImage picture;
    if (!imagePath.empty() && picture.Load(imagePath, ResolutionOf(GetSafeHwnd()))) {
        picture.AlphaBlend(item.hDC, item.rcItem.left, item.rcItem.top);
    } else {
        SetBkMode(item.hDC, TRANSPARENT);
        SetTextColor(item.hDC, colours.text);
        DrawCaption(item);
    }
    if ((item.itemState & ODS_FOCUS) != 0) {
        // Within the frame, whose colour the ring may have.
        RECT inner = item.rcItem;
        InflateRect(&inner, -1, -1);
        DrawFocusRing(item.hDC, inner);
    }
}

// A button that is as small as its picture has no room for its text.
void CQorLinkButton::DrawCaption(const DRAWITEMSTRUCT& item) const {
    const std::wstring text = imagePath.empty() ? GetWindowText() : missingPictureSign;
    RECT area = item.rcItem;
    UINT format = DT_VCENTER | DT_SINGLELINE | (imagePath.empty() ? DT_LEFT : DT_CENTER);
    if ((item.itemState & ODS_NOACCEL) != 0) format |= DT_HIDEPREFIX;
    DrawTextW(item.hDC, text.c_str(), static_cast<int>(text.size()), &area, format);
}
