// Versions of products.
#pragma once

#include <compare>
#include <string_view>

namespace brevanto {

// A product's version as Windows Installer compares it: three fields, whatever stands after them.
struct ProductVersion {
    unsigned majorField = 0;
    unsigned minorField = 0;
    unsigned buildField = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): the check takes the comparison itself for a null pointer.
    friend auto operator<=>(const ProductVersion&, const ProductVersion&) = default;
};

// Reads "1.2.3" or "1.2.3.4". A field that is missing or does not begin with a digit counts as 0, and one
// that is larger than any that the installer allows counts as that largest.
ProductVersion ParseProductVersion(std::wstring_view text);

}  // namespace brevanto
