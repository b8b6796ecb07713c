#include "wizard/ButtonFace.h"

namespace {

struct Palette {
    RgbColour normal;
    RgbColour hot;
    RgbColour disabled;
};

constexpr Palette grey = {.normal = 0x5A5A64, .hot = 0x4E4E57, .disabled = 0xC5C5C9};
constexpr Palette green = {.normal = 0x00AD21, .hot = 0x128622, .disabled = 0xA6E3B2};

}  // namespace

ButtonFace FlatButtonFace(const ButtonState& state, bool secondary) {
    const Palette& palette = secondary ? grey : green;
    if (state.selected) return {.colour = palette.normal, .frameWidth = 2};
    if (state.hot) return {.colour = palette.hot, .frameWidth = state.focused ? 2 : 1};
    if (state.focused) return {.colour = palette.normal, .frameWidth = 2};
    if (state.disabled) return {.colour = palette.disabled, .frameWidth = 1};
    return {.colour = palette.normal, .frameWidth = 1};
}
