// UTF-8 and wide text without the system's help, alike on every platform. Functions of their arguments, for
// any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace packagecheck {

// One character of a text in UTF-8. What is no character comes as U+FFFD, a byte at a time.
struct Utf8Character {
    std::uint32_t code = 0;
    std::size_t length = 1;  // in bytes
    bool isValid = true;
};

// Returns the character at the start of the bytes, which must not be empty.
Utf8Character FirstCharacter(std::string_view bytes);

// Appends a character in as many units as the platform's wide text takes for it.
void AppendCharacter(std::wstring& text, std::uint32_t code);

std::wstring FromUtf8(std::string_view bytes);

// Half of a surrogate pair becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);

// Returns true for control characters and marks of direction: what a terminal would obey instead of showing
// it.
bool IsHidden(std::uint32_t code);

// Returns true for the second unit of a character that takes two.
constexpr bool IsSecondUnit(wchar_t unit) {
    return sizeof(wchar_t) == 2 && (static_cast<std::uint32_t>(unit) & 0xFC00U) == 0xDC00U;
}

// Returns the text for people to read, in UTF-8 and in quotes: control characters and marks of direction are
// written as \u and their number, and a long text is cut.
std::string Quoted(std::wstring_view text);
std::string Quoted(std::string_view text);

}  // namespace packagecheck
