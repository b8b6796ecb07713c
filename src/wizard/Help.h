// The system's viewer of compiled help files.
#pragma once

#include <windows.h>

#include <string>

// Opens the topic of that number. A missing file, or a system without the viewer, shows nothing.
void ShowHelpTopic(HWND owner, const std::wstring& file, DWORD topic);
