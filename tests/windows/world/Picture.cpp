#include "tests/windows/world/Picture.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "framework/Handles.h"

namespace {

double Linear(int part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double LuminanceOf(COLORREF colour) {
    return 0.2126 * Linear(GetRValue(colour)) + 0.7152 * Linear(GetGValue(colour)) +
           0.0722 * Linear(GetBValue(colour));
}

}  // namespace

Picture PictureOf(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    // Its bits are colours as they are compared: there are too many of them to go through each.
    BITMAPV4HEADER info{};
    info.bV4Size = sizeof(info);
    info.bV4Width = area.right;
    info.bV4Height = -area.bottom;
    info.bV4Planes = 1;
    info.bV4BitCount = 32;
    info.bV4V4Compression = BI_BITFIELDS;
    info.bV4RedMask = RGB(255, 0, 0);
    info.bV4GreenMask = RGB(0, 255, 0);
    info.bV4BlueMask = RGB(0, 0, 255);
    void* bits = nullptr;
    const Bitmap bitmap(CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS,
                                         &bits, nullptr, 0));
    const MemoryDc memory(CreateCompatibleDC(nullptr));
    const SelectedObject selected(memory.get(), bitmap.get());
    const WindowDc source(window);
    // As it stands on the screen, also where the window is laid out from the right.
    SetLayout(source.get(), 0);
    BitBlt(memory.get(), 0, 0, area.right, area.bottom, source.get(), 0, 0, SRCCOPY);
    GdiFlush();
    const auto* const pixels = static_cast<const COLORREF*>(bits);
    return {.width = area.right,
            .height = area.bottom,
            .pixels = {pixels, pixels + std::ptrdiff_t{area.right} * area.bottom}};
}

Picture FreshPictureOf(HWND window) {
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    return PictureOf(window);
}

Picture PartOf(const Picture& picture, HWND window, HWND control) {
    RECT ground{};
    RECT area{};
    GetClientRect(window, &ground);
    // A window that is laid out from the right counts its columns from there.
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&ground), 2);
    GetWindowRect(control, &area);
    OffsetRect(&area, -std::min(ground.left, ground.right), -ground.top);
    const RECT whole{0, 0, picture.width, picture.height};
    IntersectRect(&area, &area, &whole);
    Picture part{.width = area.right - area.left, .height = area.bottom - area.top, .pixels = {}};
    for (int y = area.top; y < area.bottom; ++y) {
        const auto row = picture.pixels.begin() + std::ptrdiff_t{y} * picture.width;
        part.pixels.insert(part.pixels.end(), row + area.left, row + area.right);
    }
    return part;
}

double ContrastOf(COLORREF one, COLORREF other) {
    const auto [darker, lighter] = std::minmax(LuminanceOf(one), LuminanceOf(other));
    return (lighter + 0.05) / (darker + 0.05);
}

std::vector<double> ContrastsBetween(const Picture& before, const Picture& after) {
    std::vector<double> contrasts;
    for (std::size_t place = 0; place < before.pixels.size(); ++place) {
        if (before.pixels[place] != after.pixels[place])
            contrasts.push_back(ContrastOf(before.pixels[place], after.pixels[place]));
    }
    return contrasts;
}

namespace {

// The middle two thirds, each way, of where two pictures differ; none of it where they do not.
RECT MiddleOfChange(const Picture& before, const Picture& after) {
    RECT changed{};
    for (int y = 0; y < after.height; ++y) {
        for (int x = 0; x < after.width; ++x) {
            const RECT pixel{x, y, x + 1, y + 1};
            if (before.At(x, y) != after.At(x, y)) UnionRect(&changed, &changed, &pixel);
        }
    }
    InflateRect(&changed, -(changed.right - changed.left) / 6, -(changed.bottom - changed.top) / 6);
    return changed;
}

}  // namespace

std::vector<double> ContrastsWithin(const Picture& before, const Picture& after) {
    const RECT middle = MiddleOfChange(before, after);
    std::vector<COLORREF> pixels;
    std::map<COLORREF, int> counts;
    for (int y = middle.top; y < middle.bottom; ++y) {
        for (int x = middle.left; x < middle.right; ++x) {
            pixels.push_back(after.At(x, y));
            ++counts[pixels.back()];
        }
    }
    const auto most = std::ranges::max_element(counts, {}, [](const auto& entry) { return entry.second; });
    std::vector<double> contrasts;
    for (const COLORREF pixel : pixels) {
        if (pixel != most->first) contrasts.push_back(ContrastOf(most->first, pixel));
    }
    return contrasts;
}
