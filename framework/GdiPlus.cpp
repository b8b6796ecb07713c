#include "framework/GdiPlus.h"

#include "framework/Handles.h"
#include "framework/SystemLibrary.h"

namespace GdiPlus {

namespace {

template <class Function>
bool Find(Function& function, const Library& library, const char* name) {
    function = FindExport<Function>(library.get(), name);
    return function != nullptr;
}

bool FindAll(Entries& found, const Library& library) {
    return library && Find(found.startUp, library, "GdiplusStartup") &&
           Find(found.createBitmapFromFile, library, "GdipCreateBitmapFromFile") &&
           Find(found.createBitmapFromPixels, library, "GdipCreateBitmapFromScan0") &&
           Find(found.getWidth, library, "GdipGetImageWidth") &&
           Find(found.getHeight, library, "GdipGetImageHeight") &&
           Find(found.getGraphics, library, "GdipGetImageGraphicsContext") &&
           Find(found.drawImage, library, "GdipDrawImageRectI") &&
           Find(found.disposeImage, library, "GdipDisposeImage") &&
           Find(found.deleteGraphics, library, "GdipDeleteGraphics");
}

bool StartUp(const Entries& entries) {
    ULONG_PTR token = 0;
    Gdiplus::GdiplusStartupInput input;
    return entries.startUp(&token, &input, nullptr) == Gdiplus::Ok;
}

}  // namespace

const Entries* Get() {
    static const Library library = LoadSystemLibrary(L"gdiplus.dll");
    static Entries entries{};
    static const bool isUp = FindAll(entries, library) && StartUp(entries);
    return isUp ? &entries : nullptr;
}

}  // namespace GdiPlus
