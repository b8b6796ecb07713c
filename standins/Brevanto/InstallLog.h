// The log that the installer keeps of its runs.
#pragma once

#include <string>

namespace brevanto {

// Sets the vendor whose log folder the next runs write to. Any thread may call it.
void SetInstallLogName(const std::wstring& name);

// The path of the log for a vendor: "Packages.log" beside the logs of the wizard, which lie in a folder that
// all users share. Characters that no folder name can hold become "_", and an empty name stands for
// "Printer".
std::wstring InstallLogPath(const std::wstring& name);

// Lets Windows Installer append to the log, verbosely, as long as it lives. A folder that cannot be made
// costs the log, not the run.
class InstallLogScope {
public:
    InstallLogScope();
    ~InstallLogScope();
    InstallLogScope(const InstallLogScope&) = delete;
    InstallLogScope& operator=(const InstallLogScope&) = delete;
};

}  // namespace brevanto
