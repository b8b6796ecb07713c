// What a program or library is linked to, as its file says.
#pragma once

#include <windows.h>

#include <filesystem>
#include <set>
#include <string>

// The names of the libraries that the system loads along with the file, in small letters; with those that it
// loads when they are first used, if they are asked for. Empty for what is no such file.
std::set<std::wstring> ImportsOf(const std::filesystem::path& file, bool withLateOnes);

// The flags by which the system searches for what the file imports: 0 where the file says nothing.
WORD SearchFlagsOf(const std::filesystem::path& file);
