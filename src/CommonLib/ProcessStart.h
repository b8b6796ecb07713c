// Starts other programs.
#pragma once

#include <windows.h>

#include <string>

#include "framework/Handles.h"

// Starts a process with a command line and CreateProcess's flags, and returns it; empty, with the thread's
// last error set, if the system refuses. Without a program the command line names it, up to a blank. With
// one, the line is only what the process reads, and a path with blanks that stands there without quotes
// starts nothing else.
[[nodiscard]] KernelHandle StartProcess(const wchar_t* program, std::wstring commandLine, DWORD flags);

// Runs a program with these parameters as an administrator, in a hidden window, after the system has asked
// the user where it has to. Does not wait for it. Returns true if it was started.
bool RunElevated(const wchar_t* program, const std::wstring& parameters);
