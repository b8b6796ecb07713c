// Another process, started and watched by a test.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "framework/Handles.h"

// Its output is read through a pipe. A process that is still there at the end of this object's life is
// killed.
class ChildProcess {
public:
    enum class Rights { Own, WithoutAdministrators };

    // Starts the program with these arguments. Throws std::runtime_error.
    ChildProcess(const std::wstring& program, const std::wstring& arguments, Rights rights = Rights::Own);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    // The next line of the output without its end; nothing once the output is closed.
    std::optional<std::string> ReadLine();
    // Waits for the end and gives the exit code, or nothing if it does not come within the limit.
    std::optional<DWORD> WaitForEnd();
    void Kill();

private:
    KernelHandle process;
    KernelHandle output;
    std::string pending;
};

// The program beside the tests that does one thing for them.
std::wstring CompanionPath();

// Runs the companion to its end. Gives its exit code, or nothing if it hangs.
std::optional<DWORD> RunCompanion(const std::wstring& arguments,
                                  ChildProcess::Rights rights = ChildProcess::Rights::Own);
