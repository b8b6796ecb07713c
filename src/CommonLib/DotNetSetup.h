// The setup program of the .NET prerequisite, and the test whether it is needed.
#pragma once

#include <cstdint>
#include <string>

// Runs the setup program and waits for it; the window of the calling thread stays painted meanwhile, and all
// other input to it is dropped. Returns the program's exit code.
// By design: 0, which reads as a success, if the program cannot be started.
std::uint32_t InstallDotNetRuntime(const std::wstring& setupPath);

// The value "Install" of that key of the machine's registry, 0 if there is none.
std::uint32_t IsDotNetInstalled(const std::wstring& registryKey);
