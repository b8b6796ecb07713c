// The controls of a dialog, one after the other.
#pragma once

#include <windows.h>

// Calls the deed with each child of the window itself, in their order from the top, which it may not change.
template <class Deed>
void ForEachChild(HWND window, const Deed& deed) {
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        deed(child);
}
