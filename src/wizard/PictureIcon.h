// A picture of the package as an icon.
#pragma once

#include <windows.h>

#include "framework/Handles.h"

// Main thread. The icon is made when it is first asked for: most pages show none.
class PictureIcon {
public:
    // The name of a file among the pictures, which must stay valid.
    explicit PictureIcon(const wchar_t* fileName) : name(fileName) {}

    // The icon for the resolution that the window has when it is first asked for; owned by this object. Null
    // without the picture.
    HICON For(HWND window);
    void Reset() { icon.reset(); }
    // Makes the icon for another resolution, if there is one, and returns the former one.
    Icon Renew(HWND window);
    HICON Current() const { return icon.get(); }

private:
    const wchar_t* name;
    Icon icon;
};
