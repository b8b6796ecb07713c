// Calls that come in through the exports of a library.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <string>

namespace discovery {

// The one place where an exception ends: the callers are programs of any language.
template <typename Work>
std::uint32_t Shielded(const Work& work) noexcept {
    try {
        return work();
    } catch (...) {
        return ERROR_OUTOFMEMORY;
    }
}

inline std::wstring TextOf(const wchar_t* text) {
    return text == nullptr ? std::wstring() : std::wstring(text);
}

// Copies the elements where there is room for all of them, and says how many there are in any case.
template <typename Elements, typename Element>
std::uint32_t CopyOut(const Elements& elements, Element* buffer, std::uint32_t capacity,
                      std::uint32_t* required) {
    const auto needed = static_cast<std::uint32_t>(elements.size());
    if (required != nullptr) *required = needed;
    if (needed > capacity || (buffer == nullptr && needed > 0)) return ERROR_INSUFFICIENT_BUFFER;
    std::ranges::copy(elements, buffer);
    return ERROR_SUCCESS;
}

}  // namespace discovery
