#include "tools/PackageCheck/Quoted.h"

#include "CommonLib/Utf8.h"
#include "tools/ShownText.h"

namespace packagecheck {

std::string Quoted(std::wstring_view text) {
    constexpr std::size_t longest = 80;
    std::string quoted = "\"";
    for (std::size_t shown = 0; !text.empty(); ++shown) {
        if (shown == longest) return quoted + "...\"";
        const TextCharacter character = FirstCharacter(text);
        text.remove_prefix(character.length);
        if (IsHidden(character.code)) {
            quoted += NumberOf(character.code);
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
