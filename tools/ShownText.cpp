#include "tools/ShownText.h"

#include <array>
#include <cstdio>

#include "CommonLib/Utf8.h"

namespace {

bool IsLayout(std::wstring_view rest) {
    return rest.starts_with(L'\n') || rest.starts_with(L'\t') || rest.starts_with(L"\r\n");
}

}  // namespace

bool IsHidden(std::uint32_t code) {
    const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
    const bool isDirection = code == 0x61C || (code >= 0x200E && code <= 0x200F) ||
                             (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    return isControl || isDirection || code == 0xFEFF || code == 0x2028 || code == 0x2029;
}

std::string NumberOf(std::uint32_t code) {
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "\\u%04X", static_cast<unsigned>(code));
    return number.data();
}

// No hidden character takes two units.
std::wstring ShownText(std::wstring_view lines) {
    std::wstring shown;
    shown.reserve(lines.size());
    for (std::wstring_view rest = lines; !rest.empty(); rest.remove_prefix(1)) {
        const auto code = static_cast<std::uint32_t>(rest.front());
        if (!IsHidden(code) || IsLayout(rest)) {
            shown += rest.front();
        } else {
            shown += FromUtf8(NumberOf(code));
        }
    }
    return shown;
}

std::string ShownText(std::string_view lines) {
    return ToUtf8(ShownText(FromUtf8(lines)));
}
