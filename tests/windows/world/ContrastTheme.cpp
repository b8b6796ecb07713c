#include "tests/windows/world/ContrastTheme.h"

#include <algorithm>
#include <map>

namespace {

constexpr int lastColour = COLOR_MENUBAR;

COLORREF ColourOf(const ContrastTheme& theme, int place) {
    const std::map<int, COLORREF> apart{{COLOR_GRAYTEXT, theme.greyText},
                                        {COLOR_HOTLIGHT, theme.link},
                                        {COLOR_HIGHLIGHT, theme.selection},
                                        {COLOR_HIGHLIGHTTEXT, theme.selectedText}};
    if (const auto found = apart.find(place); found != apart.end()) return found->second;
    constexpr int texts[] = {COLOR_WINDOWTEXT,   COLOR_BTNTEXT,     COLOR_MENUTEXT,      COLOR_CAPTIONTEXT,
                             COLOR_INFOTEXT,     COLOR_WINDOWFRAME, COLOR_3DHILIGHT,     COLOR_3DSHADOW,
                             COLOR_ACTIVEBORDER, COLOR_3DDKSHADOW,  COLOR_INACTIVEBORDER};
    return std::ranges::find(texts, place) != std::end(texts) ? theme.text : theme.ground;
}

}  // namespace

void PrintTo(const ContrastTheme& theme, std::ostream* stream) {
    *stream << theme.name;
}

std::vector<ContrastTheme> EveryContrastTheme() {
    constexpr COLORREF black = RGB(0, 0, 0);
    constexpr COLORREF white = RGB(255, 255, 255);
    constexpr COLORREF yellow = RGB(255, 255, 0);
    constexpr COLORREF green = RGB(0, 255, 0);
    constexpr COLORREF blue = RGB(0, 128, 255);
    constexpr COLORREF cyan = RGB(0, 255, 255);
    constexpr COLORREF purple = RGB(128, 0, 128);
    return {{"WhiteOnBlack", black, white, green, yellow, cyan, black},
            {"BlackOnWhite", white, black, RGB(96, 0, 0), RGB(0, 0, 159), purple, white},
            {"YellowOnBlack", black, yellow, green, cyan, blue, white},
            {"GreenOnBlack", black, green, RGB(192, 192, 192), cyan, blue, white}};
}

ContrastColours::ContrastColours() {
    for (int place = 0; place <= lastColour; ++place) {
        places.push_back(place);
        former.push_back(GetSysColor(place));
    }
}

ContrastColours::~ContrastColours() {
    SetSysColors(static_cast<int>(places.size()), places.data(), former.data());
}

void ContrastColours::Set(const ContrastTheme& theme) {
    std::vector<int> places;
    std::vector<COLORREF> colours;
    for (int place = 0; place <= lastColour; ++place) {
        places.push_back(place);
        colours.push_back(ColourOf(theme, place));
    }
    SetSysColors(static_cast<int>(places.size()), places.data(), colours.data());
}
