// Text conversions that the system does.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The text with %NAME% replaced by the environment's values; empty if the system cannot expand it.
std::wstring ExpandEnvironment(const std::wstring& text);

// UTF-8 as wide text. What cannot be decoded becomes replacement characters.
std::wstring Utf8ToWide(std::string_view bytes);

// Text of a code page of the system as wide text; empty if the system cannot convert it. Code page 0 is the
// system's own.
std::wstring CodePageToWide(std::uint32_t codePage, std::string_view bytes);

// Text of the current C locale, of the given length in bytes, as wide text. Empty for a null text, for length
// 0 and for bytes that the locale does not know.
std::wstring NarrowToWide(const char* text, std::size_t length);
