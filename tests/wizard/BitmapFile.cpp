#include "BitmapFile.h"

std::string BitmapFile(COLORREF colour) {
    constexpr int width = 16;
    const BITMAPINFOHEADER header{.biSize = sizeof(BITMAPINFOHEADER),
                                  .biWidth = width,
                                  .biHeight = width,
                                  .biPlanes = 1,
                                  .biBitCount = 24};
    constexpr DWORD start = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
    const BITMAPFILEHEADER file{.bfType = 0x4D42, .bfSize = start + width * width * 3, .bfOffBits = start};
    std::string bytes(reinterpret_cast<const char*>(&file), sizeof(file));
    bytes.append(reinterpret_cast<const char*>(&header), sizeof(header));
    for (int pixel = 0; pixel < width * width; ++pixel) {
        for (const BYTE part : {GetBValue(colour), GetGValue(colour), GetRValue(colour)}) {
            bytes += static_cast<char>(part);
        }
    }
    return bytes;
}
