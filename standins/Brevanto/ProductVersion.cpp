#include "standins/Brevanto/ProductVersion.h"

#include <algorithm>

namespace brevanto {
namespace {

constexpr unsigned largestField = 65535;

// Takes the leading number off the text, and what stands after it up to and including the next point.
unsigned TakeField(std::wstring_view& text) {
    unsigned value = 0;
    std::size_t digits = 0;
    while (digits < text.size() && text[digits] >= L'0' && text[digits] <= L'9') {
        value = std::min(value * 10 + static_cast<unsigned>(text[digits] - L'0'), largestField);
        ++digits;
    }
    const std::size_t point = text.find(L'.', digits);
    text.remove_prefix(point == std::wstring_view::npos ? text.size() : point + 1);
    return value;
}

}  // namespace

ProductVersion ParseProductVersion(std::wstring_view text) {
    ProductVersion version;
    version.majorField = TakeField(text);
    version.minorField = TakeField(text);
    version.buildField = TakeField(text);
    return version;
}

}  // namespace brevanto
