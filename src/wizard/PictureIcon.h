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

private:
    const wchar_t* name;
    Icon icon;
};
