// What the fuzzers share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

// The input as text, one character per byte, cut at null bytes into exactly so many parts. The last part
// takes what is left; missing parts are empty.
inline std::vector<std::wstring> PartsOf(const std::uint8_t* data, std::size_t size, std::size_t count) {
    std::vector<std::wstring> parts(1);
    for (const std::uint8_t* byte = data; byte != data + size; ++byte) {
        if (*byte == 0 && parts.size() < count) {
            parts.emplace_back();
        } else {
            parts.back() += static_cast<wchar_t>(*byte);
        }
    }
    parts.resize(count);
    return parts;
}

// Ends the run as a finding.
inline void Require(bool holds) {
    if (!holds) std::abort();
}
