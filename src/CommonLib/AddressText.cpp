#include "CommonLib/AddressText.h"

#include <algorithm>
#include <optional>

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

constexpr std::size_t ipV6Size = 16;

using Octets = std::vector<std::uint8_t>;

void AppendIpV4(std::wstring_view text, Octets& bytes) {
    for (const std::wstring& number : SplitClosed(std::wstring(text) + L'.', L'.')) {
        bytes.push_back(static_cast<std::uint8_t>(LeadingInteger(number)));
    }
}

std::optional<unsigned> HexadecimalDigit(wchar_t character) {
    if (IsDigit(character)) return character - L'0';
    if (character >= L'a' && character <= L'f') return character - L'a' + 10;
    if (character >= L'A' && character <= L'F') return character - L'A' + 10;
    return std::nullopt;
}

bool AppendGroup(std::wstring_view text, Octets& bytes) {
    constexpr std::size_t longestGroup = 4;
    if (text.empty() || text.size() > longestGroup) return false;
    unsigned group = 0;
    for (const wchar_t character : text) {
        const std::optional<unsigned> digit = HexadecimalDigit(character);
        if (!digit) return false;
        group = group * 16 + *digit;
    }
    bytes.push_back(static_cast<std::uint8_t>(group >> 8));
    bytes.push_back(static_cast<std::uint8_t>(group & 0xFF));
    return true;
}

// The groups between single colons, none in an empty text. At the end of the address the last one may be an
// IPv4 address.
std::optional<Octets> ReadGroups(std::wstring_view text, bool isEnd) {
    Octets bytes;
    for (bool more = !text.empty(); more;) {
        const std::size_t colon = text.find(L':');
        more = colon != std::wstring_view::npos;
        if (!more && isEnd && IsValidIpV4Text(text)) {
            AppendIpV4(text, bytes);
        } else if (!AppendGroup(text.substr(0, colon), bytes)) {
            return std::nullopt;
        }
        if (more) text.remove_prefix(colon + 1);
        if (more && bytes.size() >= ipV6Size) return std::nullopt;
    }
    return bytes;
}

Octets ReadIpV6(std::wstring_view text) {
    const std::size_t gap = text.find(L"::");
    const std::optional<Octets> head = ReadGroups(text.substr(0, gap), gap == std::wstring_view::npos);
    if (!head) return {};
    if (gap == std::wstring_view::npos) return head->size() == ipV6Size ? *head : Octets();
    const std::optional<Octets> tail = ReadGroups(text.substr(gap + 2), true);
    // The gap stands for one group at least.
    if (!tail || head->size() + tail->size() > ipV6Size - 2) return {};
    Octets bytes(*head);
    bytes.resize(ipV6Size - tail->size());
    bytes.insert(bytes.end(), tail->begin(), tail->end());
    return bytes;
}

}  // namespace

bool IsValidHostName(std::wstring_view text) {
    return CountPieces(text, IsLabel) > 0;
}

bool IsValidIpV4Text(std::wstring_view text) {
    constexpr std::size_t numbers = 4;
    return CountPieces(text, IsByte) == numbers;
}

std::vector<std::uint8_t> AddressBytes(std::wstring_view text) {
    Octets bytes;
    if (IsValidIpV4Text(text)) {
        AppendIpV4(text, bytes);
        return bytes;
    }
    const std::size_t percent = text.find(L'%');
    // A zone that begins must not be empty.
    if (percent != std::wstring_view::npos && percent + 1 == text.size()) return {};
    return ReadIpV6(text.substr(0, percent));
}
