// The setup program of the .NET prerequisite, and the test whether it is needed.
#pragma once

#include <cstdint>
#include <string>

// Runs the setup program and waits for it; the window of the calling thread stays painted meanwhile, and all
// other input to it is dropped. Gives the program's exit code, or 0 if it cannot be started, which then reads
// as a success, and this is meant.
std::uint32_t InstallDotNetRuntime(const std::wstring& setupPath);

// The value "Install" of that key of the machine's registry, 0 if there is none.
std::uint32_t IsDotNetInstalled(const std::wstring& registryKey);
