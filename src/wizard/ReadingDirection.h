// The layout of windows by the direction in which the language reads.
#pragma once

#include <windows.h>

#include "settings/Localizer.h"

// The extended style of a window of the wizard.
// By design: in a language that reads from right to left exactly that layout, with nothing of the template's.
inline DWORD ReadingStyle(const Localizer& localizer, DWORD ofTemplate) {
    return IsRightToLeft(localizer) ? WS_EX_LAYOUTRTL : ofTemplate;
}
