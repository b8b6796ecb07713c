// The words for the colour class of a device.
#pragma once

#include <string_view>

namespace ColourClass {

inline constexpr std::wstring_view mono = L"mono";
inline constexpr std::wstring_view color = L"color";

}  // namespace ColourClass
