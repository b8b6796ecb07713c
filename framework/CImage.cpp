#include "framework/CImage.h"

#include <memory>
#include <utility>

#include "framework/GdiPlus.h"
#include "framework/Resolution.h"

namespace ATL {

namespace {

using ImageOwner = std::unique_ptr<Gdiplus::GpBitmap, decltype(GdiPlus::Entries::disposeImage)>;
using GraphicsOwner = std::unique_ptr<Gdiplus::GpGraphics, decltype(GdiPlus::Entries::deleteGraphics)>;

ImageOwner OpenPicture(const GdiPlus::Entries& gdi, const std::wstring& path) {
    Gdiplus::GpBitmap* image = nullptr;
    const bool opened = gdi.createBitmapFromFile(path.c_str(), &image) == Gdiplus::Ok;
    return {opened ? image : nullptr, gdi.disposeImage};
}

// Draws the picture into pixels with the colours multiplied by the transparency.
bool Draw(const GdiPlus::Entries& gdi, Gdiplus::GpBitmap* picture, int width, int height, void* pixels) {
    Gdiplus::GpBitmap* image = nullptr;
    if (gdi.createBitmapFromPixels(width, height, width * 4, PixelFormat32bppPARGB,
                                   static_cast<BYTE*>(pixels), &image) != Gdiplus::Ok) {
        return false;
    }
    const ImageOwner canvas(image, gdi.disposeImage);
    Gdiplus::GpGraphics* context = nullptr;
    if (gdi.getGraphics(image, &context) != Gdiplus::Ok) return false;
    const GraphicsOwner graphics(context, gdi.deleteGraphics);
    return gdi.drawImage(context, picture, 0, 0, width, height) == Gdiplus::Ok;
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

bool CImage::Load(const std::wstring& path, int resolution) {
    return Read(path, [resolution](SIZE own) {
        return SIZE{MulDiv(own.cx, resolution, plainResolution), MulDiv(own.cy, resolution, plainResolution)};
    });
}

bool CImage::LoadToFill(const std::wstring& path, SIZE size) {
    return Read(path, [size](SIZE) { return size; });
}

bool CImage::Read(const std::wstring& path, const std::function<SIZE(SIZE)>& wantedSize) {
    bitmap.reset();
    const GdiPlus::Entries* const gdi = GdiPlus::Get();
    if (gdi == nullptr) return false;
    const ImageOwner source = OpenPicture(*gdi, path);
    if (!source) return false;
    UINT columns = 0;
    UINT rows = 0;
    gdi->getWidth(source.get(), &columns);
    gdi->getHeight(source.get(), &rows);
    const SIZE size = wantedSize({static_cast<LONG>(columns), static_cast<LONG>(rows)});
    width = size.cx;
    height = size.cy;
    void* pixels = nullptr;
    Bitmap target = MakeBitmap(width, height, pixels);
    if (!target || !Draw(*gdi, source.get(), width, height, pixels)) return false;
    bitmap = std::move(target);
    return true;
}

void CImage::AlphaBlend(HDC target, int left, int top) const {
    if (IsNull()) return;
    const MemoryDc memory(CreateCompatibleDC(target));
    const SelectedObject selected(memory.get(), bitmap.get());
    const BLENDFUNCTION blend{
        .BlendOp = AC_SRC_OVER, .BlendFlags = 0, .SourceConstantAlpha = 255, .AlphaFormat = AC_SRC_ALPHA};
    // The entry of GDI32 and not that of MSIMG32, which the system does not load from its own folder alone.
    GdiAlphaBlend(target, left, top, width, height, memory.get(), 0, 0, width, height, blend);
}

Icon CImage::ToIcon() const {
    if (IsNull()) return {};
    const Bitmap mask(CreateBitmap(width, height, 1, 1, nullptr));
    ICONINFO info{
        .fIcon = TRUE, .xHotspot = 0, .yHotspot = 0, .hbmMask = mask.get(), .hbmColor = bitmap.get()};
    return Icon(CreateIconIndirect(&info));
}

}  // namespace ATL
