// Texts of a package as people read them on a terminal. Functions of their arguments, for any thread.
#pragma once

#include <string>
#include <string_view>

namespace packagecheck {

// Returns the text for people to read, in UTF-8 and in quotes: control characters and marks of direction are
// written as \u and their number, and a long text is cut.
std::string Quoted(std::wstring_view text);
std::string Quoted(std::string_view text);

}  // namespace packagecheck
