// What every scripted library needs of its surroundings.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

// The folder of the library that this is linked into, which is not that of the program, with its closing
// backslash.
std::wstring OwnFolder();

// Longer than any test waits; a step that runs into it leaves a line in the record.
inline constexpr std::chrono::seconds longestWait{120};
// What an export returns whose caller has too little room.
inline constexpr std::uint32_t bufferTooSmall = 122;

// False if the file does not come into being within the longest wait.
bool WaitForFile(const std::wstring& path);

// Appends a line to a record: the thread, the name of the export and its arguments, each as name=value.
void AppendRecord(const std::wstring& path, const std::vector<std::wstring>& fields);

// An argument of a record.
std::wstring Field(const wchar_t* name, const std::wstring& value);
std::wstring Field(const wchar_t* name, unsigned long long value);
