#include "standins/discovery/PlainText.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace discovery {

namespace {

constexpr std::size_t longestRead = 4096;

std::uint8_t At(std::string_view bytes, std::size_t place) {
    return place < bytes.size() ? static_cast<std::uint8_t>(bytes[place]) : 0;
}

struct Decoded {
    char32_t character;
    std::size_t length;
};

// The character of a sequence of two, three or four bytes that is written as it should be.
std::optional<Decoded> Utf8Sequence(std::string_view bytes) {
    const std::uint8_t lead = At(bytes, 0);
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4) return std::nullopt;
    char32_t character = lead & (0x7F >> length);
    for (std::size_t place = 1; place < length; ++place) {
        const std::uint8_t next = At(bytes, place);
        if ((next & 0xC0) != 0x80) return std::nullopt;
        character = character << 6 | (next & 0x3F);
    }
    constexpr char32_t firstOfFour = 0x10000;
    constexpr char32_t last = 0x10FFFF;
    const bool isTooLong = (length == 3 && character < 0x800) || (length == 4 && character < firstOfFour);
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    if (isTooLong || isSurrogate || character > last) return std::nullopt;
    return Decoded{character, length};
}

Decoded NextCharacter(std::string_view bytes) {
    if (At(bytes, 0) < 0x80) return {At(bytes, 0), 1};
    return Utf8Sequence(bytes).value_or(Decoded{At(bytes, 0), 1});
}

bool IsTextual(char32_t character) {
    if (character < U' ' || (character >= 0x7F && character < 0xA0)) return false;
    if (character == U'<' || character == U'>' || character == U';') return false;
    const bool isMark = (character >= 0x200B && character <= 0x200F) ||
                        (character >= 0x2028 && character <= 0x202E) ||
                        (character >= 0x2060 && character <= 0x206F) || character == 0xFEFF;
    return !isMark;
}

void Append(std::wstring& text, char32_t character) {
    constexpr char32_t firstPair = 0x10000;
    if constexpr (sizeof(wchar_t) == 2) {
        if (character >= firstPair) {
            const char32_t offset = character - firstPair;
            text += static_cast<wchar_t>(0xD800 + (offset >> 10));
            text += static_cast<wchar_t>(0xDC00 + (offset & 0x3FF));
            return;
        }
    }
    text += static_cast<wchar_t>(character);
}

}  // namespace

std::wstring PlainText(std::string_view bytes) {
    bytes = bytes.substr(0, longestRead);
    std::wstring text;
    bool isBlankDue = false;
    while (!bytes.empty() && text.size() + 3 <= longestPlainText) {
        const Decoded next = NextCharacter(bytes);
        bytes.remove_prefix(next.length);
        if (next.character == U' ' || !IsTextual(next.character)) {
            isBlankDue = !text.empty();
            continue;
        }
        if (isBlankDue) text += L' ';
        isBlankDue = false;
        Append(text, next.character);
    }
    return text;
}

}  // namespace discovery
