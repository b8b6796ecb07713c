#include "tools/PackageCheck/TagScan.h"

#include <algorithm>
#include <utility>

#include "settings/TagSearch.h"

namespace packagecheck {

namespace {

// Walks from sign to sign.
class Scanner {
public:
    explicit Scanner(std::wstring_view scanned) : text(scanned) {}

    std::vector<FoundTag> Run() {
        for (position = text.find(L'<'); position != nowhere; position = text.find(L'<', position)) {
            if (!StepOverComment() && !StepOverDeclaration()) TakeTag();
        }
        return std::move(tags);
    }

private:
    bool StepOverComment() {
        if (!text.substr(position).starts_with(L"<!--")) return false;
        position += 4;
        // By design: a comment that does not end comments nothing out.
        if (position > commentEnd && !isLastComment) {
            const std::size_t end = text.find(L"-->", position);
            isLastComment = end == nowhere;
            commentEnd = isLastComment ? 0 : end;
        }
        return true;
    }

    bool StepOverDeclaration() {
        const std::wstring_view rest = text.substr(position);
        if (!rest.starts_with(L"<?") && !rest.starts_with(L"<!")) return false;
        ++position;
        return true;
    }

    // A sign that another one follows before the tag ends is part of a value.
    void TakeTag() {
        const std::size_t end = text.find_first_of(L"<>", position + 1);
        if (end == nowhere || text[end] == L'<') {
            position = std::min(end, text.size());
            return;
        }
        FoundTag tag{.start = position, .end = end + 1, .isInComment = position < commentEnd};
        std::wstring_view inner = text.substr(position + 1, end - position - 1);
        position = end + 1;
        if (inner.starts_with(L'/')) {
            tag.kind = TagKind::Close;
            inner.remove_prefix(1);
        } else if (inner.ends_with(L'/')) {
            tag.kind = TagKind::Single;
            inner.remove_suffix(1);
        }
        tag.name = inner.substr(0, inner.find_first_of(L" \t\n"));
        if (tag.kind == TagKind::Open && tag.name.size() < inner.size())
            tag.kind = TagKind::OpenWithAttributes;
        if (!tag.name.empty()) tags.push_back(tag);
    }

    std::wstring_view text;
    std::size_t position = 0;
    std::size_t commentEnd = 0;
    bool isLastComment = false;
    std::vector<FoundTag> tags;
};

}  // namespace

std::vector<FoundTag> ScanTags(std::wstring_view text) {
    return Scanner(text).Run();
}

ElementIndex::ElementIndex(std::wstring_view searchedText, const std::vector<FoundTag>& scannedTags)
    : text(searchedText) {
    std::unordered_map<std::wstring_view, std::size_t> openByName;
    for (const FoundTag& tag : scannedTags) {
        const auto open = openByName.find(tag.name);
        if (tag.kind == TagKind::Close) {
            if (open == openByName.end()) continue;
            elements[open->second].close = &tag;
            openByName.erase(open);
        } else if (tag.kind != TagKind::Single && open == openByName.end()) {
            openByName.emplace(tag.name, elements.size());
            elements.push_back({.open = &tag});
        }
    }
    for (const Element& element : elements) byName[element.open->name].push_back(element);
}

const std::vector<Element>& ElementIndex::Named(std::wstring_view name) const {
    static const std::vector<Element> noElements;
    const auto named = byName.find(name);
    return named == byName.end() ? noElements : named->second;
}

std::wstring_view ElementIndex::ValueOf(const Element& element) const {
    const std::size_t start = element.open->end;
    return text.substr(start, element.close == nullptr ? nowhere : element.close->start - start);
}

}  // namespace packagecheck
