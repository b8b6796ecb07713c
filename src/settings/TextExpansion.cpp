#include "settings/TextExpansion.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>
#include <vector>

#include "CommonLib/TextUtilities.h"

namespace {

constexpr std::wstring_view accessKey = L"&amp";
constexpr wchar_t tagSign = L'^';

// The work of expanding one value. Everything in front of the first "^" is settled, so the text is kept as a
// settled part and a rest, whose characters stand in reverse order: the next one is the last.
class Expansion {
public:
    Expansion(const std::wstring& value, const std::function<std::wstring(std::wstring_view)>& tagReader)
        : readTag(tagReader),
          rest(value.rbegin(), value.rend()),
          replacementsLeft(mostReplacements + value.size()) {}

    // Returns false if it would not end, or not within bounds.
    bool Run() {
        while (SettleUpToSign()) {
            if (!ReplaceNext()) return false;
        }
        return true;
    }

    const std::wstring& Text() const { return settled; }

private:
    // A value in the rest, known by how many characters stand after it.
    struct Region {
        std::size_t after;
        std::set<std::wstring>::iterator name;
    };

    static constexpr std::size_t mostReplacements = 65'536;
    static constexpr std::size_t mostCharacters = 16'777'216;

    bool SettleUpToSign() {
        const std::size_t sign = rest.rfind(tagSign);
        const std::size_t kept = sign == std::wstring::npos ? 0 : sign + 1;
        settled.append(rest.rbegin(), rest.rend() - static_cast<std::ptrdiff_t>(kept));
        rest.resize(kept);
        return kept > 0;
    }

    bool ReplaceNext() {
        const std::size_t second =
            rest.size() > 1 ? rest.rfind(tagSign, rest.size() - 2) : std::wstring::npos;
        const std::size_t after = second == std::wstring::npos ? 0 : second + 1;
        const std::wstring name(rest.rbegin() + 1, rest.rend() - static_cast<std::ptrdiff_t>(after));
        const std::wstring value = readTag(name);
        characters += name.size() + value.size();
        if (replacementsLeft-- == 0 || characters > mostCharacters) return false;
        const bool ends = second == std::wstring::npos ? TakeTail(name, value) : TakeTag(second, name, value);
        rest.append(value.rbegin(), value.rend());
        return ends;
    }

    // A tag that is named again by its own value leads back to where it was.
    bool TakeTag(std::size_t after, const std::wstring& name, const std::wstring& value) {
        rest.resize(after);
        while (!regions.empty() && regions.back().after > after) {
            names.erase(regions.back().name);
            regions.pop_back();
        }
        if (value.empty()) return true;
        const auto [entry, isNew] = names.insert(name);
        if (isNew) regions.push_back({.after = after, .name = entry});
        return isNew;
    }

    // A sign without a second one names all the rest. At the very start nothing is erased: with no value to
    // put in front the same sign is found for ever, and a value that has come to nothing leads back to it.
    // Elsewhere the rest becomes the value alone, so that a name that comes up twice leads back to where it
    // was.
    bool TakeTail(const std::wstring& name, const std::wstring& value) {
        regions.clear();
        names.clear();
        if (settled.empty()) return !value.empty() && !std::exchange(beganWithTail, true);
        rest.clear();
        return tails.insert(name).second;
    }

    const std::function<std::wstring(std::wstring_view)>& readTag;
    std::wstring settled;
    std::wstring rest;
    std::vector<Region> regions;  // from the outermost to the innermost value around the next sign
    std::set<std::wstring> names;
    std::set<std::wstring> tails;
    bool beganWithTail = false;
    std::size_t replacementsLeft;
    std::size_t characters = 0;
};

// The place of an argument, and the text around one: since the place before it, and to the end.
constexpr std::wstring_view place = L"{0}";

struct Match {
    std::wstring_view before;
    std::wstring_view after;
};

// Appends what the number in the front of the signs stands for, of which there is a digit or two, as if the
// place had been found in three groups. Returns the length of the number.
std::size_t AppendGroup(std::wstring& result, std::wstring_view signs) {
    constexpr std::wstring_view groups[] = {place, place.substr(0, 1), place.substr(1, 1), place.substr(2)};
    constexpr std::size_t mostDigits = 2;
    const std::size_t length =
        std::min(signs.find_first_not_of(L"0123456789"), std::min(signs.size(), mostDigits));
    std::size_t number = 0;
    for (const wchar_t digit : signs.substr(0, length))
        number = number * 10 + static_cast<std::size_t>(digit - L'0');
    if (number < std::size(groups)) result += groups[number];
    return length;
}

// Appends what the signs after a "$" stand for, and returns how many of them it takes.
std::size_t AppendReplacement(std::wstring& result, std::wstring_view signs, const Match& match) {
    const wchar_t sign = signs.empty() ? L'\0' : signs.front();
    if (sign >= L'0' && sign <= L'9') return AppendGroup(result, signs);
    switch (sign) {
        case L'$':
            result += L'$';
            return 1;
        case L'&':
            result += place;
            return 1;
        case L'`':
            result += match.before;
            return 1;
        case L'\'':
            result += match.after;
            return 1;
        default:
            result += L'$';
            return 0;
    }
}

void AppendArgument(std::wstring& result, std::wstring_view argument, const Match& match) {
    for (std::size_t sign = argument.find(L'$'); sign != std::wstring_view::npos;
         sign = argument.find(L'$')) {
        result += argument.substr(0, sign);
        argument.remove_prefix(sign + 1);
        argument.remove_prefix(AppendReplacement(result, argument, match));
    }
    result += argument;
}

}  // namespace

// One "&" may be followed by "amp" again, as in "&amp;amp;", and is then reduced once more. What stands in
// front of it never changes, so the search goes on from there.
std::wstring ReduceAccessKeys(std::wstring value, int& surplus) {
    std::wstring reduced;
    std::size_t rest = 0;
    int found = 0;
    for (auto key = value.find(accessKey); key != std::wstring::npos; key = value.find(accessKey, rest)) {
        ++found;
        reduced.append(value, rest, key - rest);
        rest = value.find(L';', key + 1);
        if (rest == std::wstring::npos) {
            // At the very start nothing is erased, and the sign put in front makes the text be reduced again.
            if (reduced.empty()) ++found;
            reduced += reduced.empty() ? L"&&" : L"&";
            value.clear();
            rest = 0;
        } else {
            value[rest] = L'&';
        }
    }
    surplus = found > 0 ? found - 1 : 0;
    return reduced.append(value, rest);
}

TagExpansion ExpandTags(std::wstring value, const std::function<std::wstring(std::wstring_view)>& readTag) {
    Expansion expansion(value, readTag);
    if (!expansion.Run()) return {.text = std::move(value), .endless = true};
    return {.text = expansion.Text(), .endless = false};
}

std::wstring OverrideLeftToRight(const std::wstring& text) {
    constexpr wchar_t leftToRightOverride = 0x202D;
    constexpr wchar_t popDirection = 0x202C;
    return leftToRightOverride + text + popDirection;
}

std::wstring MarkNumberLeftToRight(std::wstring text) {
    const std::size_t dot = text.find(L'.');
    if (dot != std::wstring::npos) text.insert(dot, 1, leftToRightMark);
    return text;
}

std::wstring FormatWithArgument(const std::wstring& text, const std::wstring& argument) {
    std::wstring result;
    std::wstring_view rest = text;
    for (std::size_t found = rest.find(place); found != std::wstring_view::npos; found = rest.find(place)) {
        const Match match{.before = rest.substr(0, found), .after = rest.substr(found + place.size())};
        result += match.before;
        AppendArgument(result, argument, match);
        rest = match.after;
    }
    return result.append(rest);
}
