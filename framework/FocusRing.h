// The sign of the focus on what the program draws itself.
#pragma once

#include <windows.h>

// Draws two lines within the area, a black one around a white one: whatever the ground, one of them stands
// out from it. They are as wide as the user has the frames of the focus, and follow the resolution and
// the text size.
void DrawFocusRing(HDC context, RECT area);
