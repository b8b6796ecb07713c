#include "discovery/RowOrder.h"

#include <string_view>

#include "CommonLib/TextUtilities.h"

namespace {

constexpr std::wstring_view comPort = L"COM";

// Cuts the first part of an address off.
std::wstring_view NextPart(std::wstring_view& rest) {
    const std::size_t dot = rest.find(L'.');
    const std::wstring_view part = rest.substr(0, dot);
    rest = dot == std::wstring_view::npos ? std::wstring_view() : rest.substr(dot + 1);
    return part;
}

int CompareAddresses(std::wstring_view a, std::wstring_view b) {
    while (!a.empty() && !b.empty()) {
        const std::wstring_view left = NextPart(a);
        const std::wstring_view right = NextPart(b);
        if (left != right) return LeadingInteger(left) > LeadingInteger(right) ? 1 : -1;
    }
    return 0;
}

std::int32_t ComNumber(std::wstring_view text) {
    return LeadingInteger(text.substr(0, text.rfind(L':')).substr(comPort.size()));
}

}  // namespace

int CompareCells(const SortedCell& first, const SortedCell& second, bool ascending) {
    const SortedCell& a = ascending ? first : second;
    const SortedCell& b = ascending ? second : first;
    if (a.isAddress && b.isAddress) return CompareAddresses(a.text, b.text);
    if (a.text.starts_with(comPort) && b.text.starts_with(comPort)) {
        return ComNumber(a.text) > ComNumber(b.text) ? 1 : -1;
    }
    return a.text > b.text ? 1 : -1;
}
