// A sheet of paper that a test lets something draw on.
#pragma once

#include <windows.h>

#include "framework/Handles.h"

class Sheet {
public:
    static constexpr COLORREF white = RGB(255, 255, 255);
    static constexpr RECT area{0, 0, 60, 24};

    Sheet() { Clear(); }
    HDC Context() const { return context.get(); }
    COLORREF At(int x, int y) const { return GetPixel(context.get(), x, y); }
    // Whether anything stands on white paper between these columns.
    bool HasInk(int from, int to) const {
        for (int x = from; x < to; ++x) {
            for (int y = 2; y < area.bottom - 2; ++y) {
                if (At(x, y) != white) return true;
            }
        }
        return false;
    }
    void Clear() { FillRect(context.get(), &area, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH))); }

private:
    static HBITMAP MakeBitmap() {
        BITMAPINFO info{};
        info.bmiHeader = {.biSize = sizeof(BITMAPINFOHEADER),
                          .biWidth = area.right,
                          .biHeight = area.bottom,
                          .biPlanes = 1,
                          .biBitCount = 32};
        void* pixels = nullptr;
        return CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    }

    Bitmap bitmap{MakeBitmap()};
    MemoryDc context{CreateCompatibleDC(nullptr)};
    SelectedObject selected{context.get(), bitmap.get()};
};
