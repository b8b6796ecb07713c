// The faces of the flat buttons: which colours a button has in which state. Any thread.
#pragma once

#include <cstdint>

// A colour as 0xRRGGBB.
using RgbColour = std::uint32_t;

struct ButtonState {
    bool selected = false;
    bool hot = false;
    bool focused = false;
    bool disabled = false;
};

struct ButtonFace {
    RgbColour colour = 0;  // of pen and brush
    int frameWidth = 1;
};

// The face in the state that counts, which is the first of selected, hot, focused, disabled. A secondary
// button is grey, a page's main button green.
ButtonFace FlatButtonFace(const ButtonState& state, bool secondary);

// The colour for a text on a ground: the wanted one if it has the contrast that running text needs there, and
// else that of the two which stands out more.
RgbColour ReadableOn(RgbColour ground, RgbColour wanted, RgbColour other);
