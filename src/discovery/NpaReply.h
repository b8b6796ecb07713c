// Decodes what a device answers about itself: a tree of numbers and texts in an NPA packet.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// The values that a reply is asked for, by their dotted keys. A value that the reply leaves out is 0 or
// empty.
struct NpaDeviceInfo {
    std::map<std::string, std::uint32_t, std::less<>> numbers;
    std::map<std::string, std::wstring, std::less<>> texts;

    // True for a device with a fax, the only value that the program reads.
    bool HasFax() const;
};

// The widths of the fields of a reply, in bytes, as the reply announces them.
struct NpaLayout {
    std::uint32_t idWidth = 0;
    std::uint32_t typeWidth = 0;
    std::uint32_t countWidth = 0;
    std::uint32_t groupLengthWidth = 0;
    std::uint32_t leafLengthWidth = 0;
};

using Utf8Converter = std::function<std::wstring(std::string_view)>;

// Decodes one reply packet; nothing for bytes that are no such packet or whose tree leaves the packet. The
// bytes may come from anybody: no byte outside of them is read, and the time is in proportion to their
// number. Of a number of more than 32 bits the low ones are kept. The converter is called for the texts that
// are kept. May run on any thread.
std::optional<NpaDeviceInfo> DecodeNpaReply(std::span<const std::uint8_t> packet,
                                            const Utf8Converter& toWide);
