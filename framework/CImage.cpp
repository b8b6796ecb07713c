#include "framework/CImage.h"

#include <utility>

#include "framework/GdiPlus.h"

namespace ATL {

namespace {

// GDI+ stays up for the life of the process: pictures are drawn until its very end.
bool StartGdiplus() {
    static const bool started = [] {
        ULONG_PTR token = 0;
        const Gdiplus::GdiplusStartupInput input;
        return Gdiplus::GdiplusStartup(&token, &input, nullptr) == Gdiplus::Ok;
    }();
    return started;
}

Bitmap MakeBitmap(int width, int height, void*& pixels) {
    BITMAPINFO info{};
    info.bmiHeader = {.biSize = sizeof(BITMAPINFOHEADER),
                      .biWidth = width,
                      .biHeight = -height,
                      .biPlanes = 1,
                      .biBitCount = 32,
                      .biCompression = BI_RGB};
    return Bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
}

}  // namespace

bool CImage::Load(const std::wstring& path) {
    bitmap.reset();
    if (!StartGdiplus()) return false;
    Gdiplus::Bitmap source(path.c_str());
    if (source.GetLastStatus() != Gdiplus::Ok) return false;
    width = static_cast<int>(source.GetWidth());
    height = static_cast<int>(source.GetHeight());
    void* pixels = nullptr;
    Bitmap target = MakeBitmap(width, height, pixels);
    if (!target) return false;
    Gdiplus::Bitmap canvas(width, height, width * 4, PixelFormat32bppPARGB, static_cast<BYTE*>(pixels));
    Gdiplus::Graphics graphics(&canvas);
    if (graphics.DrawImage(&source, 0, 0, width, height) != Gdiplus::Ok) return false;
    bitmap = std::move(target);
    return true;
}

void CImage::AlphaBlend(HDC target, int left, int top) const {
    if (IsNull()) return;
    const MemoryDc memory(CreateCompatibleDC(target));
    const SelectedObject selected(memory.get(), bitmap.get());
    const BLENDFUNCTION blend{
        .BlendOp = AC_SRC_OVER, .BlendFlags = 0, .SourceConstantAlpha = 255, .AlphaFormat = AC_SRC_ALPHA};
    ::AlphaBlend(target, left, top, width, height, memory.get(), 0, 0, width, height, blend);
}

Icon CImage::ToIcon() const {
    if (IsNull()) return {};
    const Bitmap mask(CreateBitmap(width, height, 1, 1, nullptr));
    ICONINFO info{
        .fIcon = TRUE, .xHotspot = 0, .yHotspot = 0, .hbmMask = mask.get(), .hbmColor = bitmap.get()};
    return Icon(CreateIconIndirect(&info));
}

}  // namespace ATL
