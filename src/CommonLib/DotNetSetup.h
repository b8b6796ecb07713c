// The setup program of the .NET prerequisite, and the test whether it is needed.
#pragma once

#include <cstdint>
#include <string>

// Returns true for the name of a program that can set something up: an .exe or an .msi.
bool IsSetupProgram(const std::wstring& path);

// Runs the setup program and waits for it; the window of the calling thread stays painted meanwhile, and all
// other input to it is dropped. A package of Windows Installer is run by the system's installer. Returns the
// program's exit code, or the system's error, which is not 0, if it cannot be started.
std::uint32_t InstallDotNetRuntime(const std::wstring& setupPath);

// The value "Install" of that key of the machine's registry, 0 if there is none.
std::uint32_t IsDotNetInstalled(const std::wstring& registryKey);
