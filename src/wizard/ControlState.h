// How a control of a page is to stand there.
#pragma once

// The number that the system gives a dialog's main button.
inline constexpr int mainButton = 1;

struct ControlState {
    int id = 0;
    bool shown = true;
    bool enabled = true;

    bool operator==(const ControlState&) const = default;
};
