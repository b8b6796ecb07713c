// What a program or library is linked to, as its file says.
#pragma once

#include <windows.h>

#include <filesystem>
#include <set>
#include <string>

// The names of the libraries that the system loads along with the file, in small letters; with those that it
// loads when they are first used, if they are asked for. Empty for what is no such file.
std::set<std::wstring> ImportsOf(const std::filesystem::path& file, bool withLateOnes);
