// A picture from a file, with its transparency.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "framework/Handles.h"

namespace ATL {

// Main thread. What has been read once is kept for the next picture of that file and size: for each reading
// GDI+ asks the system about every form of picture that it knows. A file that has changed is read again.
class CImage {
public:
    // Reads the file, in any form that GDI+ knows, at the size that it has on a screen of so many dots per
    // inch. False, and the picture empty, if that fails.
    bool Load(const std::wstring& path, int resolution);
    // The same, at that size in pixels.
    bool LoadToFill(const std::wstring& path, SIZE size);
    bool IsNull() const { return picture == nullptr; }
    int GetWidth() const { return IsNull() ? 0 : picture->width; }
    int GetHeight() const { return IsNull() ? 0 : picture->height; }
    // A bitmap of 32 bits with the colours multiplied by the transparency, for as long as this object lives.
    // It is shared: it must not be drawn on, nor stay selected.
    HBITMAP GetBitmap() const { return IsNull() ? nullptr : picture->bitmap.get(); }
    // Blends the picture over the target.
    void AlphaBlend(HDC target, int left, int top) const;
    // The picture as an icon; not owning if the picture is empty.
    Icon ToIcon() const;

    struct Pixels {
        Bitmap bitmap;
        int width = 0;
        int height = 0;
    };

private:
    std::shared_ptr<const Pixels> picture;
};

}  // namespace ATL
