// How fine the screen is.
#pragma once

#include <windows.h>

// The resolution for which pictures and measures in pixels are made.
constexpr int plainResolution = 96;

// The dots per inch of the screen that the window is on, and as many more as the user's text size asks for:
// all that the program measures grows with it.
int ResolutionOf(HWND window);
// The same for what is drawn into.
int ResolutionOfDrawing(HDC context);
