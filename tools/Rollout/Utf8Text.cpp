#include "tools/Rollout/Utf8Text.h"

#include <cstdint>

namespace rollout {
namespace {

constexpr std::uint32_t replacement = 0xFFFD;
constexpr std::uint32_t firstBeyondPlane = 0x10000;
constexpr std::uint32_t lastCharacter = 0x10FFFF;

bool IsHighSurrogate(std::uint32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(std::uint32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// Takes one character from the front of a text that is not empty.
std::uint32_t TakeCharacter(std::wstring_view& text) {
    const auto unit = static_cast<std::uint32_t>(text.front());
    text.remove_prefix(1);
    if (IsHighSurrogate(unit) && !text.empty() && IsLowSurrogate(static_cast<std::uint32_t>(text.front()))) {
        const auto low = static_cast<std::uint32_t>(text.front());
        text.remove_prefix(1);
        return firstBeyondPlane + ((unit - 0xD800) << 10) + (low - 0xDC00);
    }
    return IsHighSurrogate(unit) || IsLowSurrogate(unit) || unit > lastCharacter ? replacement : unit;
}

// The number of bytes that carry the character after the first, and the mark of the first.
struct Form {
    unsigned following = 0;
    std::uint32_t mark = 0;
};

Form FormOf(std::uint32_t character) {
    if (character < 0x80) return {};
    if (character < 0x800) return {.following = 1, .mark = 0xC0};
    if (character < firstBeyondPlane) return {.following = 2, .mark = 0xE0};
    return {.following = 3, .mark = 0xF0};
}

// What the first byte of a sequence promises; nothing for a byte that begins none.
Form FormOfFirst(std::uint32_t byte) {
    if (byte >= 0xC2 && byte < 0xE0) return {.following = 1, .mark = 0xC0};
    if (byte >= 0xE0 && byte < 0xF0) return {.following = 2, .mark = 0xE0};
    if (byte >= 0xF0 && byte < 0xF5) return {.following = 3, .mark = 0xF0};
    return {};
}

std::uint32_t ByteAt(std::string_view bytes, std::size_t place) {
    return place < bytes.size() ? static_cast<unsigned char>(bytes[place]) : 0;
}

// Takes one character from the front of bytes that are not empty; of a broken sequence the first byte alone.
std::uint32_t TakeSequence(std::string_view& bytes) {
    const std::uint32_t first = ByteAt(bytes, 0);
    const Form form = FormOfFirst(first);
    std::uint32_t character = form.following == 0 ? first : first - form.mark;
    bool isWhole = form.following != 0 || first < 0x80;
    for (unsigned place = 1; place <= form.following; ++place) {
        const std::uint32_t byte = ByteAt(bytes, place);
        isWhole = isWhole && byte >= 0x80 && byte < 0xC0;
        character = (character << 6) | (byte & 0x3F);
    }
    isWhole = isWhole && character <= lastCharacter && !IsHighSurrogate(character) &&
              !IsLowSurrogate(character) && FormOf(character).following == form.following;
    bytes.remove_prefix(isWhole ? form.following + 1 : 1);
    return isWhole ? character : replacement;
}

void AppendWide(std::uint32_t character, std::wstring& text) {
    if (sizeof(wchar_t) > 2 || character < firstBeyondPlane) {
        text += static_cast<wchar_t>(character);
        return;
    }
    text += static_cast<wchar_t>(0xD800 + ((character - firstBeyondPlane) >> 10));
    text += static_cast<wchar_t>(0xDC00 + ((character - firstBeyondPlane) & 0x3FF));
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
    std::string bytes;
    while (!text.empty()) {
        const std::uint32_t character = TakeCharacter(text);
        const Form form = FormOf(character);
        bytes += static_cast<char>(form.mark | (character >> (6 * form.following)));
        for (unsigned left = form.following; left > 0; --left) {
            bytes += static_cast<char>(0x80 | ((character >> (6 * (left - 1))) & 0x3F));
        }
    }
    return bytes;
}

std::wstring FromUtf8(std::string_view bytes) {
    std::wstring text;
    while (!bytes.empty()) AppendWide(TakeSequence(bytes), text);
    return text;
}

}  // namespace rollout
