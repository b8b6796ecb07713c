// Removes folders that programs with other rights have filled.
#pragma once

#include <string>

// Removes the folder with all in it, by the command interpreter under administrator rights, again and again
// until it is gone. False if the interpreter cannot be started.
bool RemoveFolder(const std::wstring& folder);
