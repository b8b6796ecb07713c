// What a screen reader is told of a control beyond what the system says of its kind: properties that are set
// beside the control (Active Accessibility's annotation), and news. The thread of the control, on which COM
// has been brought up. Where the system does not have the service, or refuses, a control is spoken of as its
// kind is.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <string>

// A link that the system takes for a button.
void SpeakAsLink(HWND control);

// Text that is said after name, role and state of a control; an empty one takes it back. Whoever listens is
// told that it has changed.
void SetSpokenDescription(HWND control, const std::wstring& text);

// EVENT_OBJECT_LIVEREGIONCHANGED, of Windows 8 and later; older ones pass it over.
inline constexpr DWORD liveRegionChanged = 0x8019;

// Has the control's text said whenever it is told as news, after what is being said.
void SpeakAsNews(HWND control);
void TellNews(HWND control);

// Tells that other rows stand in a list: one that keeps none itself does not know.
void TellNewRows(HWND list);

// Takes back what has been set for a control, or for all in a window, as is due before they go.
void ForgetSpoken(HWND control);
void ForgetSpokenIn(HWND window);
