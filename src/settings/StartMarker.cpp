#include "settings/StartMarker.h"

namespace {

constexpr std::wstring_view startMarker = L"\u00EF\u00BB\u00BF";

}  // namespace

bool HoldsStartMarker(std::wstring_view document) {
    return document.find(startMarker) != std::wstring_view::npos;
}

std::wstring StripStartMarker(std::wstring_view document) {
    std::wstring stripped;
    stripped.reserve(document.size() + 1);
    for (bool more = true; more;) {
        const std::size_t end = document.find(L'<');
        const std::wstring_view piece = document.substr(0, end);
        // By design: an empty first piece gets its "<" like any other, so the result of "<A>" is "<<A>".
        if (piece != startMarker) stripped.append(L"<").append(piece);
        more = end != std::wstring_view::npos;
        if (more) document.remove_prefix(end + 1);
    }
    return stripped;
}
