// The boxes that a process has on the screen.
#pragma once

#include <windows.h>

#include <vector>

#include "tools/Rollout/Questions.h"

namespace rollout {

struct BoxOnScreen {
    HWND window = nullptr;
    Box box;
};

// The dialogs of the process that can be seen and take clicks. A process that does not answer costs a second
// at most for each text.
std::vector<BoxOnScreen> FindBoxes(DWORD processId);

// Presses the button of that id, without waiting for what comes of it.
void PressButton(HWND window, int button);

}  // namespace rollout
