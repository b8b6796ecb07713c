#include "standins/discovery/PlainText.h"

#include <cstdint>

#include "CommonLib/Utf8.h"

namespace discovery {

namespace {

constexpr std::size_t longestRead = 4096;

// A byte that is not UTF-8 is taken for the character of its number, as the first 256 are in Latin-1.
TextCharacter NextCharacter(std::string_view bytes) {
    const TextCharacter next = FirstCharacter(bytes);
    return next.isValid ? next : TextCharacter{.code = static_cast<unsigned char>(bytes.front())};
}

bool IsTextual(std::uint32_t character) {
    if (character <= U' ' || (character >= 0x7F && character < 0xA0)) return false;
    if (character == U'<' || character == U'>' || character == U';') return false;
    const bool isMark = (character >= 0x200B && character <= 0x200F) ||
                        (character >= 0x2028 && character <= 0x202E) ||
                        (character >= 0x2060 && character <= 0x206F) || character == 0xFEFF;
    return !isMark;
}

}  // namespace

std::wstring PlainText(std::string_view bytes) {
    bytes = bytes.substr(0, longestRead);
    std::wstring text;
    bool isBlankDue = false;
    while (!bytes.empty() && text.size() + 3 <= longestPlainText) {
        const TextCharacter next = NextCharacter(bytes);
        bytes.remove_prefix(next.length);
        if (!IsTextual(next.code)) {
            isBlankDue = !text.empty();
            continue;
        }
        if (isBlankDue) text += L' ';
        isBlankDue = false;
        AppendCharacter(text, next.code);
    }
    return text;
}

}  // namespace discovery
