// A picture from a file, with its transparency.
#pragma once

#include <windows.h>

#include <string>

#include "framework/Handles.h"

namespace ATL {

class CImage {
public:
    // Reads the file, in any form that GDI+ knows. False, and the picture empty, if that fails.
    bool Load(const std::wstring& path);
    bool IsNull() const { return !bitmap; }
    int GetWidth() const { return width; }
    int GetHeight() const { return height; }
    // A bitmap of 32 bits with the colours multiplied by the transparency; owned by this object.
    HBITMAP GetBitmap() const { return bitmap.get(); }
    // Blends the picture over the target at its own size.
    void AlphaBlend(HDC target, int left, int top) const;
    // The picture as an icon; not owning if the picture is empty.
    Icon ToIcon() const;

private:
    Bitmap bitmap;
    int width = 0;
    int height = 0;
};

}  // namespace ATL
