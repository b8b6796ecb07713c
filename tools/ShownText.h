// Texts of others as people read them on a terminal. Functions of their arguments, for any thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Returns true for control characters and marks of direction: what a terminal would obey instead of showing
// it.
bool IsHidden(std::uint32_t code);

// Returns \u and the number of the character in four digits.
std::string NumberOf(std::uint32_t code);

// Returns the lines with each hidden character as its number. Line ends and tabs stay.
std::wstring ShownText(std::wstring_view lines);
// The same in UTF-8.
std::string ShownText(std::string_view lines);
