#include "CommonLib/AddressText.h"

#include <algorithm>

#include "CommonLib/TextUtilities.h"

// A regular expression would recurse once per character and overflow the stack on a long text.

namespace {

bool IsLetterOrDigit(wchar_t character) {
    return IsDigit(character) || (character >= L'a' && character <= L'z') ||
           (character >= L'A' && character <= L'Z');
}

bool IsLabel(std::wstring_view label) {
    return !label.empty() && IsLetterOrDigit(label.front()) && IsLetterOrDigit(label.back()) &&
           std::ranges::all_of(
               label, [](wchar_t character) { return character == L'-' || IsLetterOrDigit(character); });
}

bool IsByte(std::wstring_view text) {
    if (text.empty() || text.size() > 3 || !std::ranges::all_of(text, IsDigit)) return false;
    if (text.size() > 1 && text.front() == L'0') return false;
    return text.size() < 3 || text <= L"255";
}

// Tests each piece between dots; returns how many there are, or 0 where one does not pass.
std::size_t CountPieces(std::wstring_view text, bool (*passes)(std::wstring_view)) {
    for (std::size_t count = 1;; ++count) {
        const std::size_t dot = text.find(L'.');
        if (!passes(text.substr(0, dot))) return 0;
        if (dot == std::wstring_view::npos) return count;
        text.remove_prefix(dot + 1);
    }
}

}  // namespace

bool IsValidHostName(std::wstring_view text) {
    return CountPieces(text, IsLabel) > 0;
}

bool IsValidIpV4Text(std::wstring_view text) {
    constexpr std::size_t numbers = 4;
    return CountPieces(text, IsByte) == numbers;
}
