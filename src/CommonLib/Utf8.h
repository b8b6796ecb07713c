// UTF-8 and wide text without the system's help, alike on every platform. Functions of their arguments, for
// any thread. The forms are those of RFC 3629.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// One character of a text. What is no character comes as U+FFFD: in UTF-8 a byte at a time, in wide text half
// of a surrogate pair.
struct TextCharacter {
    std::uint32_t code = 0;
    std::size_t length = 1;  // in bytes of UTF-8, or in units of wide text
    bool isValid = true;
};

// Returns the character at the start of the text, which must not be empty.
TextCharacter FirstCharacter(std::string_view bytes);
TextCharacter FirstCharacter(std::wstring_view text);

// Appends a character in UTF-8, or in as many units as the platform's wide text takes for it.
void AppendCharacter(std::string& bytes, std::uint32_t code);
void AppendCharacter(std::wstring& text, std::uint32_t code);

// What is no character becomes replacement characters, one for each byte or unit.
std::wstring FromUtf8(std::string_view bytes);
std::string ToUtf8(std::wstring_view text);

// Returns true for the second unit of a character that takes two.
constexpr bool IsSecondUnit(wchar_t unit) {
    return sizeof(wchar_t) == 2 && (static_cast<std::uint32_t>(unit) & 0xFC00U) == 0xDC00U;
}
