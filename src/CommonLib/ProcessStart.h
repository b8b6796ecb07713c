// Starts other programs.
#pragma once

#include <windows.h>

#include <string>

#include "framework/Handles.h"

// Starts the program of that full path as a process, with CreateProcess's flags, and returns it; empty, with
// the thread's last error set, if the system refuses. The command line is only what the process reads: a path
// with blanks that stands there without quotes starts nothing else.
[[nodiscard]] KernelHandle StartProcess(const std::wstring& program, std::wstring commandLine, DWORD flags);
