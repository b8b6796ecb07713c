#include "discovery/RowOrder.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <string_view>

#include "CommonLib/AddressText.h"
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

// A cell with the number of a plain IPv4 address, which is read once and not at each comparison.
struct SortKey {
    SortedCell cell;
    std::optional<std::uint32_t> number;
};

SortKey KeyOf(const SortedCell& cell) {
    if (!cell.isAddress || !IsValidIpV4Text(cell.text)) return {.cell = cell, .number = std::nullopt};
    std::uint32_t number = 0;
    for (std::wstring_view rest = cell.text; !rest.empty();)
        number = number * 256 + static_cast<std::uint32_t>(LeadingInteger(NextPart(rest)));
    return {.cell = cell, .number = number};
}

bool IsBehind(const SortKey& first, const SortKey& second, bool ascending) {
    if (!first.number || !second.number) return CompareCells(first.cell, second.cell, ascending) > 0;
    return ascending ? *first.number > *second.number : *first.number < *second.number;
}

using Rows = std::span<const std::size_t>;

// Cuts at most so many rows off.
Rows NextRun(Rows& rest, std::size_t length) {
    const Rows run = rest.first(std::min(length, rest.size()));
    rest = rest.subspan(run.size());
    return run;
}

template <typename Order>
void AppendMerged(std::vector<std::size_t>& merged, Rows left, Rows right, const Order& isBehind) {
    while (!left.empty() && !right.empty()) {
        Rows& next = isBehind(left.front(), right.front()) ? right : left;
        merged.push_back(NextRun(next, 1).front());
    }
    for (const Rows rest : {left, right}) merged.insert(merged.end(), rest.begin(), rest.end());
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

// The library's sorts ask for an order of all, and texts, ports and addresses among each other have one of
// every two at best. Runs that are merged need no more.
void SortRows(std::vector<std::size_t>& rows, const std::vector<SortedCell>& cells, bool ascending) {
    std::vector<SortKey> keys;
    keys.reserve(cells.size());
    std::ranges::transform(cells, std::back_inserter(keys), KeyOf);
    const auto isBehind = [&](std::size_t first, std::size_t second) {
        return IsBehind(keys[first], keys[second], ascending);
    };
    std::vector<std::size_t> merged;
    merged.reserve(rows.size());
    for (std::size_t length = 1; length < rows.size(); length *= 2) {
        for (Rows rest = rows; !rest.empty();) {
            const Rows left = NextRun(rest, length);
            AppendMerged(merged, left, NextRun(rest, length), isBehind);
        }
        rows.swap(merged);
        merged.clear();
    }
}
