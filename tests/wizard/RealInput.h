// The keyboard and the mouse themselves: what they do reaches whatever the system finds in front.
#pragma once

#include <windows.h>

#include <initializer_list>

// Presses the keys, given as virtual codes, in their order and lets them go in the opposite one, as for
// Ctrl+End. They go to the window that is in front.
void PressKeys(std::initializer_list<WORD> keys);

// Takes the mouse to the corner of the screen, where no window will appear under it. Due before the program
// starts: a window that appears under the mouse is told where that stood, at any later time.
void ParkMouse();
// Takes the mouse to that place of the screen with no button down.
void MoveMouse(POINT place);
// Presses the left button there, or lets it go.
void HoldMouse(POINT place);
void ReleaseMouse();
void TurnWheel(POINT place, int notches);

// The middle of a window on the screen.
POINT MiddleOf(HWND window);
