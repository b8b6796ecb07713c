// The searches on which the tag document operations stand. They take time in proportion to the document, also
// where name and document are made to provoke the opposite, and may run on any thread. A position is a count
// of characters; std::wstring_view::npos says that there is none.
#pragma once

#include <string_view>

struct TagPositions {
    std::size_t open = std::wstring_view::npos;
    std::size_t close = std::wstring_view::npos;

    bool BothFound() const { return open != std::wstring_view::npos && close != std::wstring_view::npos; }
};

// Returns where the first plain open tag and, independently of it, the first close tag of that name begin.
TagPositions FindTags(std::wstring_view document, std::wstring_view name);

// Returns where the first open tag with attributes, "<", name and a blank, begins.
std::size_t FindAttributeTag(std::wstring_view document, std::wstring_view name);
