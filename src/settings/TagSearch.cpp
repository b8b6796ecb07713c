#include "settings/TagSearch.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace {

// How far a search for the pattern may move on when a character of the text stands under the pattern's end.
// Characters share an entry by their low byte, which can only make a step shorter.
class SkipTable {
public:
    explicit SkipTable(std::wstring_view pattern) {
        const std::size_t longest = std::min<std::size_t>(pattern.size(), longestSkip);
        skips.fill(static_cast<std::uint8_t>(longest));
        for (std::size_t distance = longest; distance-- > 1;) {
            skips[Slot(pattern[pattern.size() - 1 - distance])] = static_cast<std::uint8_t>(distance);
        }
    }

    std::size_t Skip(wchar_t underEnd) const { return skips[Slot(underEnd)]; }

private:
    static constexpr std::size_t longestSkip = 255;

    static std::size_t Slot(wchar_t character) { return static_cast<std::uint32_t>(character) & 0xFFU; }

    std::array<std::uint8_t, 256> skips;
};

// Search by the pattern's own borders: never slower than the text is long, whatever the pattern repeats.
std::vector<std::size_t> BordersOf(std::wstring_view pattern) {
    std::vector<std::size_t> borders(pattern.size(), 0);
    for (std::size_t i = 1, length = 0; i < pattern.size(); ++i) {
        while (length > 0 && pattern[i] != pattern[length]) length = borders[length - 1];
        if (pattern[i] == pattern[length]) ++length;
        borders[i] = length;
    }
    return borders;
}

std::size_t FindByBorders(std::wstring_view text, std::wstring_view pattern) {
    const auto borders = BordersOf(pattern);
    std::size_t matched = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        while (matched > 0 && text[i] != pattern[matched]) matched = borders[matched - 1];
        if (text[i] == pattern[matched]) ++matched;
        if (matched == pattern.size()) return i + 1 - matched;
    }
    return nowhere;
}

bool HoldsOpenSign(std::wstring_view name) {
    return name.find(L'<') != nowhere;
}

// Finds both tags in one pass over the text after their first signs, name and ">". A comparison starts only
// after a "<" and ends at the next one, since the name holds none.
class SimpleTagSearch {
public:
    SimpleTagSearch(std::wstring_view searchedDocument, std::wstring_view name)
        : document(searchedDocument), tail(std::wstring(name) + L'>'), skips(tail) {}

    TagPositions Run() {
        const std::size_t length = tail.size();
        for (std::size_t end = length; end <= document.size() && !found.BothFound();) {
            const wchar_t last = document[end - 1];
            if (last == L'>') Note(end - length);
            end += skips.Skip(last);
        }
        return found;
    }

private:
    void Note(std::size_t start) {
        if (start == 0) return;
        const bool opens = document[start - 1] == L'<';
        const bool closes = start > 1 && document[start - 1] == L'/' && document[start - 2] == L'<';
        if (!opens && !closes) return;
        std::size_t& position = opens ? found.open : found.close;
        if (position == nowhere && document.substr(start, tail.size()) == tail) {
            position = start - (opens ? 1 : 2);
        }
    }

    std::wstring_view document;
    std::wstring tail;
    SkipTable skips;
    TagPositions found;
};

}  // namespace

TagPositions FindTags(std::wstring_view document, std::wstring_view name) {
    if (!HoldsOpenSign(name)) return SimpleTagSearch(document, name).Run();
    const std::wstring tail = std::wstring(name) + L'>';
    return {.open = FindByBorders(document, L'<' + tail), .close = FindByBorders(document, L"</" + tail)};
}

std::size_t FindAttributeTag(std::wstring_view document, std::wstring_view name) {
    const std::wstring tag = L'<' + std::wstring(name) + L' ';
    return HoldsOpenSign(name) ? FindByBorders(document, tag) : document.find(tag);
}
