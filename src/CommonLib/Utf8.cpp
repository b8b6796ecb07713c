#include "CommonLib/Utf8.h"

#include <array>

namespace {

constexpr std::uint32_t replacement = 0xFFFD;
constexpr std::uint32_t firstPair = 0x10000;
constexpr std::uint32_t lastCode = 0x10FFFF;
constexpr TextCharacter noCharacter{.code = replacement, .length = 1, .isValid = false};

bool IsSurrogate(std::uint32_t code) {
    return code >= 0xD800 && code < 0xE000;
}

// Returns the length of the sequence that a byte begins, or 0 if none begins with it.
std::size_t SequenceLength(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

bool IsShortestForm(std::uint32_t code, std::size_t length) {
    constexpr std::array<std::uint32_t, 5> smallest = {0, 0, 0x80, 0x800, firstPair};
    return code >= smallest[length];
}

template <typename Text>
std::size_t AppendFirst(Text& text, TextCharacter character) {
    AppendCharacter(text, character.code);
    return character.length;
}

}  // namespace

TextCharacter FirstCharacter(std::string_view bytes) {
    const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
    const std::size_t length = SequenceLength(byteAt(0));
    if (length == 1) return {.code = byteAt(0)};
    if (length == 0 || length > bytes.size()) return noCharacter;
    std::uint32_t code = byteAt(0) & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xC0U) != 0x80U) return noCharacter;
        code = (code << 6U) | (byteAt(i) & 0x3FU);
    }
    if (!IsShortestForm(code, length) || IsSurrogate(code) || code > lastCode) return noCharacter;
    return {.code = code, .length = length};
}

TextCharacter FirstCharacter(std::wstring_view text) {
    const auto unit = static_cast<std::uint32_t>(text[0]);
    if (!IsSurrogate(unit)) return unit <= lastCode ? TextCharacter{.code = unit} : noCharacter;
    if (unit >= 0xDC00 || text.size() < 2 || !IsSecondUnit(text[1])) return noCharacter;
    const std::uint32_t second = static_cast<std::uint32_t>(text[1]) & 0x3FFU;
    return {.code = firstPair + ((unit & 0x3FFU) << 10U) + second, .length = 2};
}

void AppendCharacter(std::string& bytes, std::uint32_t code) {
    const auto tail = [&](unsigned shift) { bytes += static_cast<char>(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
        bytes += static_cast<char>(code);
    } else if (code < 0x800) {
        bytes += static_cast<char>(0xC0U | (code >> 6U));
        tail(0);
    } else if (code < firstPair) {
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

void AppendCharacter(std::wstring& text, std::uint32_t code) {
    if (sizeof(wchar_t) == 2 && code >= firstPair) {
        text += static_cast<wchar_t>(0xD800U + ((code - firstPair) >> 10U));
        text += static_cast<wchar_t>(0xDC00U + (code & 0x3FFU));
    } else {
        text += static_cast<wchar_t>(code);
    }
}

std::wstring FromUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    while (!bytes.empty()) bytes.remove_prefix(AppendFirst(text, FirstCharacter(bytes)));
    return text;
}

std::string ToUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) text.remove_prefix(AppendFirst(bytes, FirstCharacter(text)));
    return bytes;
}
