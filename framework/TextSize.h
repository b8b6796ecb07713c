// The text size of the user's settings for accessibility, by which the dialogs of the program grow.
#pragma once

#include <windows.h>

// The size of the letters in the program's dialog templates, in points.
inline constexpr int templatePoints = 9;

// Has the dialogs that are made from now on grow by the user's text size, as far as one of that template, the
// largest, still fits on the screen. The main thread, before the first dialog: what is there stays as it is.
void FollowTextSize(UINT largestTemplate);

// What the letters of the templates have grown to, in whole points. Any thread.
int GrownPoints();
