// Steps that turn a value of a language file into the text on the screen. All may run on any thread.
#pragma once

#include <functional>
#include <string>
#include <string_view>

// Turns each "&amp;" into "&", the mark of an access key. surplus receives how many were found after the
// first one, which is the number of records that the caller writes.
std::wstring ReduceAccessKeys(std::wstring value, int& surplus);

struct TagExpansion {
    std::wstring text;
    bool endless = false;
};

// Replaces each ^TAG^ by what readTag returns for that name, again and again until no "^" is left. readTag is
// called on the caller's thread and must return the same answer for one name during the call. An expansion
// that cannot end is given up: endless is true and text is the value as it was handed in. So is one that
// takes more than 65,536 replacements and one more per character of the value, or more than 16,777,216
// characters in the names and values of its replacements.
TagExpansion ExpandTags(std::wstring value, const std::function<std::wstring(std::wstring_view)>& readTag);

// Puts the left-to-right mark, U+200E, in front of the first "."; later ones stay bare.
std::wstring MarkNumberLeftToRight(std::wstring text);

// Puts the text between U+202D and U+202C, which keep its order among text that reads from right to left.
std::wstring OverrideLeftToRight(const std::wstring& text);

// Replaces every "{0}" in the text by the argument, in which "$" acts as the replacement sign of a regular
// expression ("$$" stands for one "$"). "{1}" to "{9}" stay. A text without any of these comes back
// unchanged.
std::wstring FormatWithArgument(const std::wstring& text, const std::wstring& argument);
