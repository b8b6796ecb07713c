// What every scripted library needs of its surroundings.
#pragma once

#include <string>
#include <vector>

// The folder of the library that this is linked into, which is not that of the program, with its closing
// backslash.
std::wstring OwnFolder();

// False if the file does not come into being within two minutes, longer than any test waits.
bool WaitForFile(const std::wstring& path);

// Appends a line to a record: the thread, the name of the export and its arguments, each as name=value.
void AppendRecord(const std::wstring& path, const std::vector<std::wstring>& fields);

// An argument of a record.
std::wstring Field(const wchar_t* name, const std::wstring& value);
std::wstring Field(const wchar_t* name, unsigned long long value);
