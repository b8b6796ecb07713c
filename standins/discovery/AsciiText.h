// Comparing texts of protocols, in which the case of ASCII letters does not count.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace discovery {

constexpr char SmallLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

inline std::string SmallText(std::string_view text) {
    std::string small(text);
    std::ranges::transform(small, small.begin(), SmallLetter);
    return small;
}

inline bool EqualsInAnyCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, SmallLetter, SmallLetter);
}

inline bool HoldsInAnyCase(std::string_view text, std::string_view part) {
    return SmallText(text).find(SmallText(part)) != std::string::npos;
}

}  // namespace discovery
