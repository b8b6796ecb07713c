// The questions that Quelmar.dll carries to the devices.
#pragma once

#include <array>
#include <cstdint>

// The start byte, the big-endian count of the bytes after the count, and the question.
constexpr auto colourQuestion = std::to_array<std::uint8_t>({0xA5, 0x00, 0x03, 0x50, 0x01, 0x00});
constexpr auto deviceQuestion =
    std::to_array<std::uint8_t>({0xA5, 0x00, 0x07, 0x50, 0xE0, 0x21, 0x01, 0x00, 0x00, 0x00});
