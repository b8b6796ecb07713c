#include "framework/FreshDialog.h"

#include <commctrl.h>

#include "framework/ChildWindows.h"
#include "framework/DialogTemplate.h"
#include "framework/TextSize.h"

namespace {

// A box with a list is as high as with its list open.
RECT PlaceWithList(HWND control) {
    RECT place{};
    if (SendMessageW(control, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&place)) == 0)
        GetWindowRect(control, &place);
    return place;
}

LONG WidthOf(HWND control) {
    RECT area{};
    GetClientRect(control, &area);
    return area.right;
}

// The columns of a list keep their shares of it.
void GrowColumns(HWND list, LONG from, LONG to) {
    const HWND heading = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    const int count = heading == nullptr ? 0 : Header_GetItemCount(heading);
    for (int column = 0; column < count; ++column)
        ListView_SetColumnWidth(list, column, MulDiv(ListView_GetColumnWidth(list, column), to, from));
}

}  // namespace

FreshDialog::FreshDialog(UINT dialogTemplate, HWND like) {
    DialogTemplate source(dialogTemplate);
    if (source.IsEmpty()) return;
    source.Grow(GrownPoints(), templatePoints);
    dialog = CreateDialogIndirectParamW(
        GetModuleHandleW(nullptr), source.get(), GetParent(like),
        [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
}

SIZE FreshDialog::Size() const {
    RECT area{};
    GetWindowRect(dialog, &area);
    return {area.right - area.left, area.bottom - area.top};
}

HFONT FreshDialog::Letters() const {
    return reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0));
}

void FreshDialog::PlaceControlsOf(HWND other) const {
    ForEachChild(dialog, [&](HWND measure) {
        const HWND control = GetDlgItem(other, GetDlgCtrlID(measure));
        RECT place = PlaceWithList(measure);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
        const LONG width = WidthOf(control);
        SetWindowPos(control, nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
        GrowColumns(control, width, WidthOf(control));
    });
}
