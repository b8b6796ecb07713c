#include "tools/PackageCheck/Quoted.h"

#include <array>
#include <cstdio>

#include "CommonLib/Utf8.h"

namespace packagecheck {

bool IsHidden(std::uint32_t code) {
    const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
    const bool isDirection = (code >= 0x200E && code <= 0x200F) || (code >= 0x202A && code <= 0x202E) ||
                             (code >= 0x2066 && code <= 0x2069);
    return isControl || isDirection || code == 0xFEFF || code == 0x2028 || code == 0x2029;
}

std::string Quoted(std::wstring_view text) {
    constexpr std::size_t longest = 80;
    std::string quoted = "\"";
    for (std::size_t shown = 0; !text.empty(); ++shown) {
        if (shown == longest) return quoted + "...\"";
        const TextCharacter character = FirstCharacter(text);
        text.remove_prefix(character.length);
        if (IsHidden(character.code)) {
            std::array<char, 16> number{};
            std::snprintf(number.data(), number.size(), "\\u%04X", static_cast<unsigned>(character.code));
            quoted += number.data();
        } else {
            AppendCharacter(quoted, character.code);
        }
    }
    return quoted + '"';
}

std::string Quoted(std::string_view text) {
    return Quoted(FromUtf8(text));
}

}  // namespace packagecheck
