// A picture from a file, with its transparency.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "framework/Handles.h"

namespace ATL {

class CImage {
public:
    // Reads the file, in any form that GDI+ knows, at the size that it has on a screen of so many dots per
    // inch. False, and the picture empty, if that fails.
    bool Load(const std::wstring& path, int resolution);
    // The same, at that size in pixels.
    bool LoadToFill(const std::wstring& path, SIZE size);
    bool IsNull() const { return !bitmap; }
    int GetWidth() const { return width; }
    int GetHeight() const { return height; }
    // A bitmap of 32 bits with the colours multiplied by the transparency; owned by this object.
    HBITMAP GetBitmap() const { return bitmap.get(); }
    // Blends the picture over the target.
    void AlphaBlend(HDC target, int left, int top) const;
    // The picture as an icon; not owning if the picture is empty.
    Icon ToIcon() const;

private:
    bool Read(const std::wstring& path, const std::function<SIZE(SIZE)>& wantedSize);

    Bitmap bitmap;
    int width = 0;
    int height = 0;
};

}  // namespace ATL
