// The text size of the user's settings for accessibility, by which the dialogs of the program grow.
#pragma once

#include <windows.h>

// The size of the letters in the program's dialog templates, in points.
inline constexpr int templatePoints = 9;

// Has the dialogs that are made from now on grow by the user's text size, as far as one of that template, the
// largest, still fits on the screen. Before the first dialog; any thread.
void FollowTextSize(UINT largestTemplate);
// The same again, for settings that may have changed. Any thread; what is there asks what has come of it.
void FollowTextSize();

// What the letters of the templates have grown to, in whole points. Any thread.
int GrownPoints();
