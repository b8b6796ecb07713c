#include "framework/Resolution.h"

#include "framework/Handles.h"
#include "framework/TextSize.h"

int ResolutionOf(HWND window) {
    return MulDiv(GetDeviceCaps(WindowDc(window).get(), LOGPIXELSY), GrownPoints(), templatePoints);
}
