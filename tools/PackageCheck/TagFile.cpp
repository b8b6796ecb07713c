#include "tools/PackageCheck/TagFile.h"

#include <algorithm>

#include "settings/TagDocument.h"
#include "settings/TagSearch.h"

namespace packagecheck {

namespace {

// The end of the line that a position is in.
std::size_t EndOfLine(std::wstring_view text, std::size_t position) {
    return std::min(text.find_first_of(L"\n\r\u2028\u2029", position), text.size());
}

}  // namespace

Place TagFile::PlaceOf(std::wstring_view name) const {
    const std::vector<Element>& named = elements.Named(name);
    return named.empty() ? Place{.file = path} : PlaceOf(named.front().open->start);
}

std::vector<TakenElement> TakenElements(const TagFile& file) {
    const std::wstring_view text = file.Text();
    std::vector<TakenElement> taken;
    auto tag = file.Tags().begin();
    for (const std::wstring& name : TagDocument::ListElementNames(text)) {
        const std::wstring close = L"</" + name + L'>';
        for (; tag != file.Tags().end(); ++tag) {
            if (tag->kind != TagKind::Open || tag->name != name) continue;
            if (!taken.empty() && tag->start < taken.back().end) continue;
            // The value has a character at least, which may be the first of a close tag.
            const std::size_t end = text.substr(0, EndOfLine(text, tag->end)).find(close, tag->end + 1);
            if (end == nowhere) continue;
            taken.push_back({.name = tag->name,
                             .start = tag->start,
                             .valueStart = tag->end,
                             .value = text.substr(tag->end, end - tag->end),
                             .end = end + close.size()});
            break;
        }
    }
    return taken;
}

}  // namespace packagecheck
