#include "tools/PackageCheck/Fixes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "CommonLib/Utf8.h"
#include "settings/StartMarker.h"
#include "settings/TagNames.h"
#include "settings/TagSearch.h"
#include "tools/PackageCheck/CodePages.h"
#include "tools/PackageCheck/KnownTags.h"
#include "tools/PackageCheck/TagScan.h"

namespace packagecheck {

namespace {

constexpr std::wstring_view whiteSpace = L" \t\r\n";
constexpr unsigned utf8Page = 65001;

bool IsWhite(wchar_t character) {
    return whiteSpace.find(character) != nowhere;
}

std::wstring FromUtf16(std::string_view bytes) {
    const bool hasMark = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
    const bool isBigEndian = hasMark ? bytes[0] == '\xFE' : bytes[0] == '\0';
    std::wstring text;
    std::uint32_t high = 0;
    for (std::size_t i = hasMark ? 2 : 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        const auto unit =
            static_cast<std::uint32_t>(isBigEndian ? first << 8U | second : second << 8U | first);
        if ((unit & 0xFC00U) == 0xD800) {
            high = unit;
        } else if ((unit & 0xFC00U) == 0xDC00 && high != 0) {
            AppendCharacter(text, 0x10000 + ((high & 0x3FFU) << 10U) + (unit & 0x3FFU));
            high = 0;
        } else {
            AppendCharacter(text, unit);
        }
    }
    return text;
}

// Cuts a part out of a text.
struct Cut {
    std::size_t start = 0;
    std::size_t end = 0;
};

// The cuts of the repairs that concern elements.
class ElementRepair {
public:
    ElementRepair(const std::wstring& repaired, TextKind fileKind)
        : text(repaired), kind(fileKind), tags(ScanTags(text)), elements(text, tags) {}

    std::wstring Run() {
        std::size_t joinedEnd = 0;
        for (const Element& element : elements.All()) {
            if (element.close == nullptr || element.open->start < joinedEnd) continue;
            if (kind == TextKind::User && IsWanted(element) && Join(element)) {
                joinedEnd = element.close->end;
            } else if (FindSettingsTag(element.open->name) != nullptr) {
                Trim(element.open->end, element.close->start);
            }
        }
        return Applied();
    }

private:
    // A known element of the user's file that stands on several lines.
    bool IsWanted(const Element& element) const {
        const bool isPlain = element.open->kind == TagKind::Open && !element.open->isInComment;
        const bool isOverLines = elements.ValueOf(element).find_first_of(L"\r\n") != nowhere;
        return isPlain && isOverLines && FindSettingsTag(element.open->name) != nullptr;
    }

    // Takes line ends and blanks next to tags out. Does nothing where the element would still be on several
    // lines.
    bool Join(const Element& element) {
        std::vector<Cut> found;
        const std::size_t end = element.close->start;
        for (std::size_t i = element.open->end; i < end;) {
            const std::size_t stop = std::min(text.find_first_not_of(whiteSpace, i), end);
            const bool isAfterTag = text[i - 1] == L'>';
            const bool isBeforeTag = text[stop] == L'<';
            const bool holdsLineEnd = text.find_first_of(L"\r\n", i) < stop;
            if (holdsLineEnd && !isAfterTag && !isBeforeTag) return false;
            if (holdsLineEnd || (stop > i && isAfterTag && isBeforeTag))
                found.push_back({.start = i, .end = stop});
            i = std::max(stop, i + 1);
        }
        cuts.insert(cuts.end(), found.begin(), found.end());
        return true;
    }

    // Takes white space at both ends of a value without tags out.
    void Trim(std::size_t start, std::size_t end) {
        const std::wstring_view value = std::wstring_view(text).substr(start, end - start);
        const std::size_t first = value.find_first_not_of(whiteSpace);
        if (first == nowhere || value.find(L'<') != nowhere) return;
        const std::size_t last = value.find_last_not_of(whiteSpace) + 1;
        if (first > 0) cuts.push_back({.start = start, .end = start + first});
        if (last < value.size()) cuts.push_back({.start = start + last, .end = end});
    }

    std::wstring Applied() {
        std::wstring result;
        std::size_t position = 0;
        for (const Cut& cut : cuts) {
            result.append(text, position, cut.start - position);
            position = cut.end;
        }
        return result.append(text, position);
    }

    const std::wstring& text;
    TextKind kind;
    std::vector<FoundTag> tags;
    ElementIndex elements;
    std::vector<Cut> cuts;
};

// The end mark where nothing but white space follows it.
void DropEndMark(std::wstring& text) {
    const std::size_t mark = text.find(L'\x1A');
    if (mark == nowhere) return;
    const auto isNothing = [](wchar_t character) { return IsWhite(character) || character == L'\x1A'; };
    if (std::all_of(text.begin() + static_cast<std::ptrdiff_t>(mark), text.end(), isNothing))
        text.resize(mark);
}

void DropStartMarker(std::wstring& text) {
    constexpr std::size_t markerLength = 3;
    const std::size_t start = text.starts_with(L'\uFEFF') ? 1 : 0;
    if (HoldsStartMarker(std::wstring_view(text).substr(start, markerLength)))
        text.erase(start, markerLength);
}

// Of tags that are nested crosswise one repair brings about the next; such a text is left to a person.
std::wstring WithRepairedElements(const std::wstring& text, TextKind kind) {
    std::wstring repaired = ElementRepair(text, kind).Run();
    return ElementRepair(repaired, kind).Run() == repaired ? repaired : text;
}

}  // namespace

std::string FixedBytes(const std::string& bytes, TextKind kind) {
    const bool isUtf16 = SourceText(bytes, Decoding::Whole).IsUtf16();
    if (!isUtf16 && FirstForeignByte(utf8Page, bytes)) return bytes;
    std::wstring text = isUtf16 ? FromUtf16(bytes) : FromUtf8(bytes);
    DropStartMarker(text);
    DropEndMark(text);
    return ToUtf8(kind == TextKind::Language ? text : WithRepairedElements(text, kind));
}

std::vector<FileFix> FindFixes(const Package& package) {
    std::vector<FileFix> fixes;
    const auto add = [&](const TagFile* file, TextKind kind) {
        constexpr std::size_t most = std::size_t{64} << 20U;
        const auto bytes = file == nullptr ? std::nullopt : package.Tree().Read(file->Path(), most);
        if (!bytes || bytes->size() == most) return;
        std::string fixed = FixedBytes(*bytes, kind);
        if (fixed != *bytes)
            fixes.push_back({.path = file->Path(), .before = *bytes, .after = std::move(fixed)});
    };
    add(package.Defaults(), TextKind::Defaults);
    add(package.User(), TextKind::User);
    for (const LanguageFile& language : package.Languages()) add(language.file.get(), TextKind::Language);
    return fixes;
}

}  // namespace packagecheck
