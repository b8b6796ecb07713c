#include "wizard/ButtonFace.h"

#include <algorithm>
#include <cmath>

namespace {

struct Palette {
    RgbColour normal;
    RgbColour hot;
    RgbColour disabled;
};

constexpr Palette grey = {.normal = 0x5A5A64, .hot = 0x4E4E57, .disabled = 0xC5C5C9};
constexpr Palette green = {.normal = 0x00AD21, .hot = 0x128622, .disabled = 0xA6E3B2};

// How much light a part of a colour gives: https://www.w3.org/TR/WCAG22/#dfn-relative-luminance
double LightOf(RgbColour colour, int shift) {
    const double part = static_cast<double>(colour >> shift & 0xFF) / 255;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(RgbColour colour) {
    return 0.2126 * LightOf(colour, 16) + 0.7152 * LightOf(colour, 8) + 0.0722 * LightOf(colour, 0);
}

// From 1 to 21: https://www.w3.org/TR/WCAG22/#dfn-contrast-ratio
double Contrast(RgbColour one, RgbColour other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace

ButtonFace FlatButtonFace(const ButtonState& state, bool secondary) {
    const Palette& palette = secondary ? grey : green;
    if (state.selected) return {.colour = palette.normal, .frameWidth = 2};
    if (state.hot) return {.colour = palette.hot, .frameWidth = state.focused ? 2 : 1};
    if (state.focused) return {.colour = palette.normal, .frameWidth = 2};
    if (state.disabled) return {.colour = palette.disabled, .frameWidth = 1};
    return {.colour = palette.normal, .frameWidth = 1};
}

RgbColour ReadableOn(RgbColour ground, RgbColour wanted, RgbColour other) {
    constexpr double enoughForText = 4.5;
    const double contrast = Contrast(wanted, ground);
    return contrast >= enoughForText || contrast >= Contrast(other, ground) ? wanted : other;
}
