// Starts a program and does not wait for it.
#pragma once

#include <windows.h>

#include <string>

#include "framework/Handles.h"

class Application {
public:
    virtual ~Application() = default;

    // Starts the program as a process of its own, detached from any console, with creationFlags added. Throws
    // Win32Exception. The process lives on when this object closes its handle.
    void launch();

    // The full path of the program, and all that the process reads, its own name included.
    std::wstring program;
    std::wstring commandLine;
    DWORD creationFlags = 0;

private:
    KernelHandle process;
};
