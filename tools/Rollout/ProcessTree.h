// A program that is started with all that it starts in turn.
#pragma once

#include <windows.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "framework/Handles.h"

namespace rollout {

// What a program is started with.
struct ProcessStart {
    std::wstring program;
    // After the program's name, each quoted where it must be.
    std::wstring arguments;
    DWORD flags = 0;
    // Inheritable handles of its input and output; null for none.
    HANDLE input = nullptr;
    HANDLE output = nullptr;
    // Whether it ends with this program, however that ends.
    bool endsWithOwner = false;
};

// Leaves the processes alone when it goes, unless they end with their owner.
class ProcessTree {
public:
    explicit ProcessTree(const ProcessStart& start);

    // False where the system has refused to start the program.
    explicit operator bool() const { return static_cast<bool>(process); }
    // The system's code for that.
    DWORD Error() const { return error; }
    DWORD Id() const { return id; }

    // Waits for the end of the program itself, at most that long; false if it has not come.
    bool WaitForEnd(std::chrono::milliseconds limit) const;
    // Nothing as long as the program runs.
    std::optional<std::uint32_t> ExitCode() const;
    // Ends the program and what it has started, and waits for the end of the program.
    void Terminate();

private:
    void MakeJob(bool endsWithOwner);

    KernelHandle job;
    KernelHandle process;
    DWORD id = 0;
    DWORD error = 0;
};

}  // namespace rollout
