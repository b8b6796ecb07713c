// What Sondrix.dll and Quelmar.dll export, and the questions that Quelmar.dll carries to the devices.
#pragma once

#include <array>
#include <cstdint>

// Each returns a code of the system; 122 asks for a larger buffer.
using LifeFunction = void (*)();
using DiscoverFunction = std::uint32_t (*)(const wchar_t* searchDocument);
using EnumerateFunction = std::uint32_t (*)(wchar_t* buffer, std::uint32_t capacity, std::uint32_t* required,
                                            const wchar_t* enumerationDocument);
using ExchangeAllFunction = std::uint32_t (*)(const wchar_t* request, const std::uint8_t* packet,
                                              std::uint32_t packetLength, wchar_t** reply,
                                              std::uint32_t* replyLength,
                                              wchar_t* (*allocate)(std::uint32_t count, wchar_t** memory));
using ExchangeFunction = std::uint32_t (*)(const wchar_t* request, const std::uint8_t* packet,
                                           std::uint32_t packetLength, std::uint8_t* reply,
                                           std::uint32_t replySize, std::uint32_t* replyLength);

// The start byte, the big-endian count of the bytes after the count, and the question.
constexpr auto colourQuestion = std::to_array<std::uint8_t>({0xA5, 0x00, 0x03, 0x50, 0x01, 0x00});
constexpr auto deviceQuestion =
    std::to_array<std::uint8_t>({0xA5, 0x00, 0x07, 0x50, 0xE0, 0x21, 0x01, 0x00, 0x00, 0x00});
