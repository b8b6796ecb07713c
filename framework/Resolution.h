// How fine the screen is.
#pragma once

#include <windows.h>

// The resolution for which pictures and measures in pixels are made.
constexpr int plainResolution = 96;

// The dots per inch of the screen that the window is on.
int ResolutionOf(HWND window);
