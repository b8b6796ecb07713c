// A picture file for a test's package.
#pragma once

#include <windows.h>

#include <string>

// The bytes of a bitmap of one colour, 16 pixels high; the width is a multiple of four. It may take the place
// of any picture: those are known by what they hold and not by their names.
std::string BitmapFile(COLORREF colour, int width = 16);
