#include <algorithm>
#include <cstdint>
#include <optional>
#include <unordered_map>

#include "settings/TagDocument.h"
#include "settings/TagSearch.h"

// The linear matcher of ListElementNames. A match lies in one line. It begins with "<" at some i, and its
// name ends at the first ">" at or after i + 2: a longer name could only close where that one closes as
// well. The text from i + 1 through that ">" is the key of the open tag. The match exists if the key stands
// again after a "</" at least one character after the open tag, and the first such place ends it.

namespace {

// Where the signs of one line stand in the document, in their order.
struct LineSigns {
    void BeginLine(std::size_t start) {
        lineStart = start;
        opens.clear();
        closeTags.clear();
        ends.clear();
    }

    std::size_t lineStart = 0;
    std::vector<std::size_t> opens;      // each "<"
    std::vector<std::size_t> closeTags;  // each "<" with a "/" after it
    std::vector<std::size_t> ends;       // each ">"
};

// Finds a sign at or after positions that only grow.
class SignCursor {
public:
    explicit SignCursor(const std::vector<std::size_t>& signPositions) : positions(signPositions) {}

    std::size_t AtOrBehind(std::size_t start) {
        while (next < positions.size() && positions[next] < start) ++next;
        return next < positions.size() ? positions[next] : nowhere;
    }

private:
    const std::vector<std::size_t>& positions;
    std::size_t next = 0;
};

// Polynomial hash modulo the prime 2^61 - 1 of a text that grows to the left. Keys that end at the same ">"
// overlap, and this gives the hash of each for one step more than that of the next shorter one.
class LeftGrowingHash {
public:
    void Prepend(wchar_t character) {
        hash = Reduce(hash + Multiply(static_cast<std::uint32_t>(character) + std::uint64_t{1}, power));
        power = Multiply(power, hashBase);
    }

    std::uint64_t Value() const { return hash; }

private:
    __extension__ using Wide = unsigned __int128;

    static constexpr std::uint64_t hashPrime = (std::uint64_t{1} << 61U) - 1;
    static constexpr std::uint64_t hashBase = 0x0A5B9D3C71E2F647;

    static std::uint64_t Reduce(std::uint64_t value) {
        return value >= hashPrime ? value - hashPrime : value;
    }

    static std::uint64_t Multiply(std::uint64_t left, std::uint64_t right) {
        const Wide product = static_cast<Wide>(left) * right;
        const auto low = static_cast<std::uint64_t>(product) & hashPrime;
        return Reduce(low + static_cast<std::uint64_t>(product >> 61U));
    }

    std::uint64_t hash = 0;
    std::uint64_t power = 1;
};

// All close tags of a line by the hash of their key, and for each "<" the first close tag that may be its
// own. Built in one pass from the end of the line, so that a chain of equal keys begins with the leftmost.
class CloseTagIndex {
public:
    CloseTagIndex(std::wstring_view indexedText, const LineSigns& signs) : text(indexedText) {
        for (std::size_t i = signs.ends.size(); i-- > 0;) {
            const std::size_t first = i > 0 ? signs.ends[i - 1] : 0;
            ReadKeys(std::max(first, signs.lineStart + 1), signs.ends[i]);
        }
    }

    // Returns where the close tag begins that ends the match, or none. Calls come with growing positions.
    // The text is compared only here, where success ends the search for everything up to the close tag.
    std::size_t Find(std::size_t open, std::size_t nameEnd) {
        while (!opens.empty() && opens.back().position < open) opens.pop_back();
        if (opens.empty() || opens.back().position != open) return nowhere;
        const std::wstring_view key = text.substr(open + 1, nameEnd - open);
        for (auto i = opens.back().close; i != endOfChain; i = closes[i].next) {
            const std::size_t position = closes[i].position;
            if (position >= nameEnd + 2 && text.substr(position + 2, key.size()) == key) return position;
        }
        return nowhere;
    }

private:
    struct Close {
        std::size_t position;
        std::size_t next;
    };
    struct Open {
        std::size_t position;
        std::size_t close;
    };

    static constexpr std::size_t endOfChain = nowhere;

    // Reads the keys that end at this ">". The ">" in front of it may itself be the first character of one.
    void ReadKeys(std::size_t first, std::size_t end) {
        LeftGrowingHash hash;
        hash.Prepend(text[end]);
        for (std::size_t start = end; start-- > first;) {
            hash.Prepend(text[start]);
            NoteKey(start, hash.Value());
        }
    }

    void NoteKey(std::size_t start, std::uint64_t hash) {
        if (text[start - 1] == L'<') {
            const auto chain = chains.find(hash);
            if (chain != chains.end()) opens.push_back({.position = start - 1, .close = chain->second});
        } else if (text[start - 1] == L'/' && start > 1 && text[start - 2] == L'<') {
            const auto chain = chains.try_emplace(hash, endOfChain).first;
            closes.push_back({.position = start - 2, .next = chain->second});
            chain->second = closes.size() - 1;
        }
    }

    std::wstring_view text;
    std::vector<Close> closes;
    std::vector<Open> opens;
    std::unordered_map<std::uint64_t, std::size_t> chains;
};

class LineMatcher {
public:
    LineMatcher(std::wstring_view matchedText, const LineSigns& lineSigns)
        : text(matchedText),
          signs(lineSigns),
          opens(signs.opens),
          nameEnds(signs.ends),
          closeTags(signs.closeTags),
          closeEnds(signs.ends) {}

    void AddNamesTo(std::vector<std::wstring>& names) {
        for (std::size_t open = opens.AtOrBehind(signs.lineStart); open != nowhere;) {
            const std::size_t nameEnd = nameEnds.AtOrBehind(open + 2);
            if (nameEnd == nowhere) return;
            const std::size_t close = FindClose(open, nameEnd);
            if (close != nowhere) names.emplace_back(NameOf(open, nameEnd));
            open = opens.AtOrBehind(close == nowhere ? open + 1 : close + 2 + (nameEnd - open));
        }
    }

private:
    // The next close tag is nearly always the right one; only where it is not does the line need its index.
    std::size_t FindClose(std::size_t open, std::size_t nameEnd) {
        const std::size_t close = closeTags.AtOrBehind(nameEnd + 2);
        if (close == nowhere) return nowhere;
        const std::size_t closeEnd = closeEnds.AtOrBehind(close + 3);
        if (closeEnd == nowhere) return nowhere;
        const std::size_t length = nameEnd - open;
        if (closeEnd - close - 1 == length &&
            text.substr(open + 1, length) == text.substr(close + 2, length)) {
            return close;
        }
        if (!index) index.emplace(text, signs);
        return index->Find(open, nameEnd);
    }

    std::wstring_view NameOf(std::size_t open, std::size_t nameEnd) const {
        const std::size_t start = open + 1;
        return text.substr(start, text[start] == L'>' ? 0 : nameEnd - start);
    }

    std::wstring_view text;
    const LineSigns& signs;
    SignCursor opens;
    SignCursor nameEnds;
    SignCursor closeTags;
    SignCursor closeEnds;
    std::optional<CloseTagIndex> index;
};

// The line ends of the expression's grammar.
bool IsLineEnd(wchar_t character) {
    return character == L'\n' || character == L'\r' || character == L'\u2028' || character == L'\u2029';
}

}  // namespace

std::vector<std::wstring> TagDocument::ListElementNames(std::wstring_view document) {
    std::vector<std::wstring> names;
    LineSigns signs;
    for (std::size_t i = 0; i < document.size(); ++i) {
        const wchar_t character = document[i];
        if (character == L'<') {
            signs.opens.push_back(i);
            if (i + 1 < document.size() && document[i + 1] == L'/') signs.closeTags.push_back(i);
        } else if (character == L'>') {
            signs.ends.push_back(i);
        } else if (IsLineEnd(character)) {
            LineMatcher(document, signs).AddNamesTo(names);
            signs.BeginLine(i + 1);
        }
    }
    LineMatcher(document, signs).AddNamesTo(names);
    return names;
}
