// What stands on the screen, pixel by pixel.
#pragma once

#include <windows.h>

#include <vector>

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;  // row by row, from the left as one sees it

    COLORREF At(int x, int y) const {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
};

// The ground of a window within its border, with the controls on it, as it is drawn by now.
Picture PictureOf(HWND window);

// The same after the window and its controls have been drawn anew.
Picture FreshPictureOf(HWND window);

// The part of a window's picture that one of its controls takes, with the control's border.
Picture PartOf(const Picture& picture, HWND window, HWND control);

// The contrast of two colours, from 1 to 21: https://www.w3.org/TR/WCAG22/#dfn-contrast-ratio
double ContrastOf(COLORREF one, COLORREF other);

// The contrasts of those pixels that are not the same in two pictures of one size, each with what was there.
std::vector<double> ContrastsBetween(const Picture& before, const Picture& after);

// The contrasts in the middle of what is not the same in two pictures of one size: of each pixel of the later
// one with the colour that most of them have.
std::vector<double> ContrastsWithin(const Picture& before, const Picture& after);
