#include "settings/KeyedValues.h"

std::map<std::wstring, std::wstring> KeyedValues(const std::vector<std::wstring>& values,
                                                 std::wstring_view separator) {
    std::map<std::wstring, std::wstring> keyed;
    for (const auto& value : values) {
        const std::size_t end = value.find(separator);
        if (value.empty() || end == std::wstring::npos) continue;
        keyed.try_emplace(value.substr(0, end), value.substr(end + separator.size()));
    }
    return keyed;
}
