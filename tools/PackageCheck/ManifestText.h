// Texts of a package as parts of documents in other languages. Functions of their arguments, for any thread.
// Narrow texts are in UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace packagecheck {

// Returns the text in one line, in valid UTF-8, with at most so many characters: control characters and marks
// of direction become blanks, and blanks are joined and taken off the ends.
std::string PlainLine(std::wstring_view text, std::size_t mostCharacters);

// The rest takes such a line, and is safe with any other text.

// Returns a scalar in double quotes.
std::string YamlText(std::string_view text);

// Returns the text between two tags, or of an attribute in double quotes.
std::string XmlText(std::string_view text);
std::string XmlText(std::wstring_view text);

// Returns a literal in single quotes, in which nothing is expanded.
std::string PowerShellText(std::string_view text);

// Returns what of the text can be part of an identifier: letters, digits and single hyphens, at most 32.
std::string IdentifierOf(std::string_view text);

}  // namespace packagecheck
