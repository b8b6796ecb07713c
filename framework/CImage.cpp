#include "framework/CImage.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

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

using Pixels = CImage::Pixels;
using PixelsPointer = std::shared_ptr<const Pixels>;

// What a picture is read from, and at which size: to fill an area, or else for a resolution.
struct Reading {
    std::wstring path;
    std::uint64_t fileTime;
    std::uint64_t fileSize;
    int resolution;
    int width;
    int height;

    bool operator==(const Reading&) const = default;
};

std::uint64_t Joined(DWORD high, DWORD low) {
    return std::uint64_t{high} << 32 | low;
}

// None if there is no such file.
std::optional<Reading> ReadingOf(const std::wstring& path, int resolution, SIZE area) {
    WIN32_FILE_ATTRIBUTE_DATA file{};
    if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &file) == FALSE) return std::nullopt;
    return Reading{
        .path = path,
        .fileTime = Joined(file.ftLastWriteTime.dwHighDateTime, file.ftLastWriteTime.dwLowDateTime),
        .fileSize = Joined(file.nFileSizeHigh, file.nFileSizeLow),
        .resolution = resolution,
        .width = area.cx,
        .height = area.cy};
}

SIZE SizeFor(const Reading& reading, UINT columns, UINT rows) {
    if (reading.resolution == 0) return {reading.width, reading.height};
    return {MulDiv(static_cast<int>(columns), reading.resolution, plainResolution),
            MulDiv(static_cast<int>(rows), reading.resolution, plainResolution)};
}

PixelsPointer ReadFile(const Reading& reading) {
    const GdiPlus::Entries* const gdi = GdiPlus::Get();
    if (gdi == nullptr) return nullptr;
    const ImageOwner source = OpenPicture(*gdi, reading.path);
    if (!source) return nullptr;
    UINT columns = 0;
    UINT rows = 0;
    gdi->getWidth(source.get(), &columns);
    gdi->getHeight(source.get(), &rows);
    const SIZE size = SizeFor(reading, columns, rows);
    void* bits = nullptr;
    Bitmap bitmap = MakeBitmap(size.cx, size.cy, bits);
    if (!bitmap || !Draw(*gdi, source.get(), size.cx, size.cy, bits)) return nullptr;
    return std::make_shared<Pixels>(Pixels{.bitmap = std::move(bitmap), .width = size.cx, .height = size.cy});
}

// The pictures that were read, of which the program has some twenty.
PixelsPointer Read(const std::optional<Reading>& reading) {
    constexpr std::size_t mostKept = 64;
    static std::vector<std::pair<Reading, PixelsPointer>> kept;
    if (!reading) return nullptr;
    const auto found = std::ranges::find(kept, *reading, &std::pair<Reading, PixelsPointer>::first);
    if (found != kept.end()) return found->second;
    PixelsPointer pixels = ReadFile(*reading);
    if (kept.size() == mostKept) kept.clear();
    if (pixels) kept.emplace_back(*reading, pixels);
    return pixels;
}

}  // namespace

bool CImage::Load(const std::wstring& path, int resolution) {
    picture = Read(ReadingOf(path, resolution, {}));
    return !IsNull();
}

bool CImage::LoadToFill(const std::wstring& path, SIZE size) {
    picture = Read(ReadingOf(path, 0, size));
    return !IsNull();
}

void CImage::AlphaBlend(HDC target, int left, int top) const {
    if (IsNull()) return;
    const MemoryDc memory(CreateCompatibleDC(target));
    const SelectedObject selected(memory.get(), GetBitmap());
    const BLENDFUNCTION blend{
        .BlendOp = AC_SRC_OVER, .BlendFlags = 0, .SourceConstantAlpha = 255, .AlphaFormat = AC_SRC_ALPHA};
    // The entry of GDI32 and not that of MSIMG32, which the system does not load from its own folder alone.
    GdiAlphaBlend(target, left, top, GetWidth(), GetHeight(), memory.get(), 0, 0, GetWidth(), GetHeight(),
                  blend);
}

Icon CImage::ToIcon() const {
    if (IsNull()) return {};
    const Bitmap mask(CreateBitmap(GetWidth(), GetHeight(), 1, 1, nullptr));
    ICONINFO info{
        .fIcon = TRUE, .xHotspot = 0, .yHotspot = 0, .hbmMask = mask.get(), .hbmColor = GetBitmap()};
    return Icon(CreateIconIndirect(&info));
}

}  // namespace ATL
