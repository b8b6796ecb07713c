// The colours of the system under a high-contrast theme.
#pragma once

#include <windows.h>

#include <ostream>
#include <vector>

struct ContrastTheme {
    const char* name;
    COLORREF ground;
    COLORREF text;
    COLORREF greyText;
    COLORREF link;
    COLORREF selection;
    COLORREF selectedText;
};

void PrintTo(const ContrastTheme& theme, std::ostream* stream);

// One of each kind that the system brings.
std::vector<ContrastTheme> EveryContrastTheme();

// Puts a theme's colours in place of the system's, and those back at the end of its life.
class ContrastColours {
public:
    ContrastColours();
    ContrastColours(const ContrastColours&) = delete;
    ContrastColours& operator=(const ContrastColours&) = delete;
    ~ContrastColours();

    static void Set(const ContrastTheme& theme);

private:
    std::vector<int> places;
    std::vector<COLORREF> former;
};
