#include "tools/PackageCheck/Utf8.h"

#include <array>
#include <cstdio>

namespace packagecheck {

namespace {

constexpr std::uint32_t replacement = 0xFFFD;

std::size_t LengthFor(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

bool IsCharacter(std::uint32_t code, std::size_t length) {
    constexpr std::array<std::uint32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = code >= 0xD800 && code < 0xE000;
    return code >= smallest[length] && code <= 0x10FFFF && !isSurrogate;
}

void AppendUtf8(std::string& bytes, std::uint32_t code) {
    const auto tail = [&](unsigned shift) { bytes += static_cast<char>(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
        bytes += static_cast<char>(code);
    } else if (code < 0x800) {
        bytes += static_cast<char>(0xC0U | (code >> 6U));
        tail(0);
    } else if (code < 0x10000) {
        bytes += static_cast<char>(0xE0U | (code >> 12U));
        tail(6);
        tail(0);
    } else {
        bytes += static_cast<char>(0xF0U | (code >> 18U));
        tail(12);
        tail(6);
        tail(0);
    }
}

// The character at a position of wide text, and how many units it takes.
std::uint32_t CharacterAt(std::wstring_view text, std::size_t position, std::size_t& units) {
    const auto unit = static_cast<std::uint32_t>(text[position]);
    units = 1;
    if (sizeof(wchar_t) != 2) return unit <= 0x10FFFF && (unit & 0xFFFFF800U) != 0xD800 ? unit : replacement;
    if ((unit & 0xF800U) != 0xD800) return unit;
    const bool isPair = unit < 0xDC00 && position + 1 < text.size() && IsSecondUnit(text[position + 1]);
    if (!isPair) return replacement;
    units = 2;
    return 0x10000 + ((unit & 0x3FFU) << 10U) + (static_cast<std::uint32_t>(text[position + 1]) & 0x3FFU);
}

}  // namespace

bool IsHidden(std::uint32_t code) {
    const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
    const bool isDirection = (code >= 0x200E && code <= 0x200F) || (code >= 0x202A && code <= 0x202E) ||
                             (code >= 0x2066 && code <= 0x2069);
    return isControl || isDirection || code == 0xFEFF || code == 0x2028 || code == 0x2029;
}

Utf8Character FirstCharacter(std::string_view bytes) {
    const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
    const std::size_t length = LengthFor(byteAt(0));
    if (length == 1) return {.code = byteAt(0)};
    constexpr Utf8Character invalid{.code = replacement, .length = 1, .isValid = false};
    if (length == 0 || length > bytes.size()) return invalid;
    std::uint32_t code = byteAt(0) & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xC0U) != 0x80U) return invalid;
        code = (code << 6U) | (byteAt(i) & 0x3FU);
    }
    return IsCharacter(code, length) ? Utf8Character{.code = code, .length = length} : invalid;
}

void AppendCharacter(std::wstring& text, std::uint32_t code) {
    if (sizeof(wchar_t) == 2 && code >= 0x10000) {
        text += static_cast<wchar_t>(0xD800U + ((code - 0x10000U) >> 10U));
        text += static_cast<wchar_t>(0xDC00U + (code & 0x3FFU));
    } else {
        text += static_cast<wchar_t>(code);
    }
}

std::wstring FromUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t position = 0; position < bytes.size();) {
        const Utf8Character character = FirstCharacter(bytes.substr(position));
        AppendCharacter(text, character.code);
        position += character.length;
    }
    return text;
}

std::string ToUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        std::size_t units = 1;
        AppendUtf8(bytes, CharacterAt(text, position, units));
        position += units;
    }
    return bytes;
}

std::string Quoted(std::wstring_view text) {
    constexpr std::size_t longest = 80;
    std::string quoted = "\"";
    std::size_t shown = 0;
    for (std::size_t position = 0; position < text.size(); ++shown) {
        if (shown == longest) return quoted + "...\"";
        std::size_t units = 1;
        const std::uint32_t code = CharacterAt(text, position, units);
        position += units;
        if (IsHidden(code)) {
            std::array<char, 16> number{};
            std::snprintf(number.data(), number.size(), "\\u%04X", static_cast<unsigned>(code));
            quoted += number.data();
        } else {
            AppendUtf8(quoted, code);
        }
    }
    return quoted + '"';
}

std::string Quoted(std::string_view text) {
    return Quoted(FromUtf8(text));
}

}  // namespace packagecheck
