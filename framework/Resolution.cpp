#include "framework/Resolution.h"

#include "framework/Handles.h"

int ResolutionOf(HWND window) {
    return GetDeviceCaps(WindowDc(window).get(), LOGPIXELSY);
}
