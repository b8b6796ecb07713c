#include "framework/FocusRing.h"

#include <algorithm>

#include "framework/Resolution.h"

namespace {

void DrawLine(HDC context, RECT& area, int width, int colour) {
    for (int line = 0; line < width; ++line) {
        FrameRect(context, &area, static_cast<HBRUSH>(GetStockObject(colour)));
        InflateRect(&area, -1, -1);
    }
}

}  // namespace

void DrawFocusRing(HDC context, RECT area) {
    const int width = std::max(
        1, MulDiv(GetSystemMetrics(SM_CXFOCUSBORDER), ResolutionOfDrawing(context), plainResolution));
    DrawLine(context, area, width, BLACK_BRUSH);
    DrawLine(context, area, width, WHITE_BRUSH);
}
