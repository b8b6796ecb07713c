// The form of the script and record files by which a test and a scripted library talk to each other: UTF-16
// text, one entry per line, its fields divided by tabs. Line ends, tabs and backslashes in a field are
// escaped.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

std::wstring EscapeField(std::wstring_view text);
std::wstring UnescapeField(std::wstring_view text);

// The line of these fields, with its line end.
std::wstring JoinFields(const std::vector<std::wstring>& fields);

// The number that a field holds; throws std::invalid_argument where there is none.
std::uint32_t ReadNumber(const std::wstring& field);

// The UTF-16 text of the file, without the half of a character at its end. A missing file has none.
std::wstring ReadText(const std::wstring& path);

// The fields of every line of the file that is complete. A missing file holds none.
std::vector<std::vector<std::wstring>> ReadLines(const std::wstring& path);

// Appends in one write and closes the file again, so that the line outlives the process. False if it cannot.
bool AppendText(const std::wstring& path, std::wstring_view text);
