// Waiting for another process without leaving the windows of this one blank.
#pragma once

#include <windows.h>

#include <initializer_list>

// Waits for the process's end. Meanwhile, once a second, this thread's waiting messages are taken: the named
// ones are handled and all others dropped, input above all. The handle stays the caller's.
void WaitForProcess(HANDLE process, std::initializer_list<UINT> handledMessages);
