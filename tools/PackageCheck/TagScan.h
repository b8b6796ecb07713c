// The tags of a text in the order in which they stand, for saying where something is. What an element means
// is settled by the wizard's own operations (settings/TagDocument.h).
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace packagecheck {

enum class TagKind {
    Open,
    OpenWithAttributes,
    Close,
    Single,  // ends in "/>"
};

struct FoundTag {
    TagKind kind = TagKind::Open;
    std::wstring_view name;  // a view into the text
    std::size_t start = 0;   // of "<"
    std::size_t end = 0;     // after ">"
    bool isInComment = false;
};

// Returns the tags; comments and declarations are none, tags within comments are. Takes time in proportion to
// the text.
std::vector<FoundTag> ScanTags(std::wstring_view text);

// An element: an open tag and the next close tag of its name.
struct Element {
    const FoundTag* open = nullptr;
    const FoundTag* close = nullptr;  // null where none follows
};

// The elements of a text.
class ElementIndex {
public:
    // The text and the tags must outlive the index.
    ElementIndex(std::wstring_view searchedText, const std::vector<FoundTag>& scannedTags);

    // All of them, in their order, an inner one after the one that holds it. An open tag within an element of
    // its own name begins none.
    const std::vector<Element>& All() const { return elements; }

    // Those of a name; empty for none.
    const std::vector<Element>& Named(std::wstring_view name) const;

    // The text between the tags, or all that follows where there is no close tag.
    std::wstring_view ValueOf(const Element& element) const;

private:
    std::wstring_view text;
    std::vector<Element> elements;
    std::unordered_map<std::wstring_view, std::vector<Element>> byName;
};

}  // namespace packagecheck
