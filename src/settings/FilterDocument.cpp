#include "settings/FilterDocument.h"

#include <algorithm>

#include "settings/TagDocument.h"

bool MatchesFilter(std::wstring_view filter,
                   const std::function<bool(std::wstring_view name, std::wstring_view value)>& test) {
    const auto names = TagDocument::ListElementNames(filter);
    return std::ranges::all_of(
        names, [&](const std::wstring& name) { return test(name, TagDocument::ValueOf(filter, name)); });
}
