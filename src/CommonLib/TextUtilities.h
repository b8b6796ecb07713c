// Small conversions of text. All may run on any thread, and none depends on the user's language.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Returns the number in base 10.
std::wstring ToDecimalString(std::uint32_t number);

// Returns the pieces that a separator closes, in order; a rest after the last separator is dropped.
std::vector<std::wstring> SplitClosed(std::wstring_view text, wchar_t separator);

// Keeps the sign after it where it stands in a text that is written from the right.
inline constexpr wchar_t leftToRightMark = L'\u200E';

constexpr bool IsDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

// Returns true if the texts are equal but for the case of ASCII letters.
bool EqualsIgnoringCase(std::wstring_view left, std::wstring_view right);

// Returns the decimal number at the start of the text, after white space and a sign; 0 where there is none,
// and the nearest possible number where it is too large.
std::int32_t LeadingInteger(std::wstring_view text);

// Returns the decimal number at the start of the text, with fraction and exponent; 0 where there is none.
double LeadingNumber(std::wstring_view text);

// Returns what follows the last backslash of a path, or the whole path where there is none. The view points
// into the path.
std::wstring_view FileNameOf(std::wstring_view path);
