// The entries of GDI+ that the program uses. They are looked up in the library of the system when the first
// picture is drawn: a library that is imported could be found beside the program.
#pragma once

#include <algorithm>
// The headers of GDI+ take property ids for granted, and min and max as unqualified functions.
using std::max;
using std::min;

// clang-format off
#include <objidl.h>
#include <propidl.h>
#include <gdiplus.h>
// clang-format on

namespace GdiPlus {

namespace Flat = Gdiplus::DllExports;

struct Entries {
    decltype(&Gdiplus::GdiplusStartup) startUp;
    decltype(&Flat::GdipCreateBitmapFromFile) createBitmapFromFile;
    decltype(&Flat::GdipCreateBitmapFromScan0) createBitmapFromPixels;
    decltype(&Flat::GdipGetImageWidth) getWidth;
    decltype(&Flat::GdipGetImageHeight) getHeight;
    decltype(&Flat::GdipGetImageGraphicsContext) getGraphics;
    decltype(&Flat::GdipDrawImageRectI) drawImage;
    decltype(&Flat::GdipDisposeImage) disposeImage;
    decltype(&Flat::GdipDeleteGraphics) deleteGraphics;
};

// Returns the entries of a GDI+ that is up, or null where the system has none. It stays up for the life of
// the process: pictures are drawn until its very end. Any thread.
const Entries* Get();

}  // namespace GdiPlus
