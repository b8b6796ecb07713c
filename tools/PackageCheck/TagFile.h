// A settings file or a language file of a package.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/PackageCheck/Finding.h"
#include "tools/PackageCheck/SourceText.h"
#include "tools/PackageCheck/TagScan.h"

namespace packagecheck {

// Stays where it is made: its parts point at each other.
class TagFile {
public:
    TagFile(std::string filePath, std::string_view bytes, Decoding decoding)
        : path(std::move(filePath)),
          source(bytes, decoding),
          tags(ScanTags(source.Text())),
          elements(source.Text(), tags) {}
    TagFile(const TagFile&) = delete;
    TagFile& operator=(const TagFile&) = delete;
    ~TagFile() = default;

    const std::string& Path() const { return path; }
    const SourceText& Source() const { return source; }
    const std::wstring& Text() const { return source.Text(); }
    const std::vector<FoundTag>& Tags() const { return tags; }
    const ElementIndex& Elements() const { return elements; }

    Place PlaceOf(std::size_t offset) const { return {.file = path, .position = source.PositionOf(offset)}; }
    // Of the first element of that name, or of the file as a whole.
    Place PlaceOf(std::wstring_view name) const;
    // Of a value, after its open tag.
    Place PlaceOfValue(const Element& element) const { return PlaceOf(element.open->end); }

private:
    std::string path;
    SourceText source;
    std::vector<FoundTag> tags;
    ElementIndex elements;
};

// An element that takes effect where a file is laid over the settings.
struct TakenElement {
    std::wstring_view name;
    std::size_t start = 0;  // of the open tag
    std::size_t valueStart = 0;
    std::wstring_view value;
    std::size_t end = 0;  // after the close tag
};

// Returns the elements that TagDocument::ListElementNames finds in the file, with their places.
std::vector<TakenElement> TakenElements(const TagFile& file);

}  // namespace packagecheck
