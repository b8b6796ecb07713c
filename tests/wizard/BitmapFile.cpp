#include "tests/wizard/BitmapFile.h"

std::string BitmapFile(COLORREF colour, int width) {
    constexpr int height = 16;
    const BITMAPINFOHEADER header{.biSize = sizeof(BITMAPINFOHEADER),
                                  .biWidth = width,
                                  .biHeight = height,
                                  .biPlanes = 1,
                                  .biBitCount = 24};
    constexpr DWORD start = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
    const auto size = static_cast<DWORD>(width) * static_cast<DWORD>(height) * 3;
    const BITMAPFILEHEADER file{.bfType = 0x4D42, .bfSize = start + size, .bfOffBits = start};
    std::string bytes(reinterpret_cast<const char*>(&file), sizeof(file));
    bytes.append(reinterpret_cast<const char*>(&header), sizeof(header));
    for (int pixel = 0; pixel < width * height; ++pixel) {
        for (const BYTE part : {GetBValue(colour), GetGValue(colour), GetRValue(colour)}) {
            bytes += static_cast<char>(part);
        }
    }
    return bytes;
}
