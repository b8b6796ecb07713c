#include "framework/Resolution.h"

#include "framework/Handles.h"
#include "framework/TextSize.h"

int ResolutionOf(HWND window) {
    return ResolutionOfDrawing(WindowDc(window).get());
}

int ResolutionOfDrawing(HDC context) {
    return MulDiv(GetDeviceCaps(context, LOGPIXELSY), GrownPoints(), templatePoints);
}
