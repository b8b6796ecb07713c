// The searches on which the tag document operations stand. They take time in proportion to the document, also
// where name and document are made to provoke the opposite, and may run on any thread. A position is a count
// of characters.
#pragma once

#include <cstddef>
#include <string_view>

// The position of what a search does not find.
inline constexpr std::size_t nowhere = std::wstring_view::npos;

struct TagPositions {
    std::size_t open = nowhere;
    std::size_t close = nowhere;

    bool BothFound() const { return open != nowhere && close != nowhere; }
};

// Returns where the first plain open tag and, independently of it, the first close tag of that name begin.
TagPositions FindTags(std::wstring_view document, std::wstring_view name);

// Returns where the first open tag with attributes, "<", name and a blank, begins.
std::size_t FindAttributeTag(std::wstring_view document, std::wstring_view name);
