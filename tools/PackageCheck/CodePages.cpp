#include "tools/PackageCheck/CodePages.h"

#include <algorithm>
#include <array>

#include "CommonLib/Utf8.h"

namespace packagecheck {

namespace {

constexpr auto otherPages = std::to_array<unsigned>(
    {0,     437,   708,   720,   737,   775,   850,   852,   855,   857,   858,   860,   861,   862,
     863,   864,   865,   866,   869,   874,   932,   936,   949,   950,   1361,  10000, 10001, 10002,
     10003, 10004, 10005, 10006, 10007, 10008, 10010, 10017, 10021, 10029, 10079, 10081, 10082, 20127,
     20866, 20932, 20936, 20949, 21866, 28591, 28592, 28593, 28594, 28595, 28596, 28597, 28598, 28599,
     28603, 28605, 38598, 50220, 50221, 50222, 50225, 51932, 51936, 51949, 52936, 54936, 65000, 65001});

struct UnusedBytes {
    unsigned page;
    std::string_view bytes;
};

// The bytes that stand for no letter. Windows shows a box for them.
constexpr auto unusedBytes = std::to_array<UnusedBytes>({
    {874,
     "\x81\x82\x83\x84\x86\x87\x88\x89\x8A\x8B\x8C\x8D\x8E\x8F\x90\x98\x99\x9A\x9B\x9C\x9D\x9E\x9F\xDB\xDC"
     "\xDD\xDE\xFC\xFD"
     "\xFE\xFF"},
    {1250, "\x81\x83\x88\x90\x98"},
    {1251, "\x98"},
    {1252, "\x81\x8D\x8F\x90\x9D"},
    {1253, "\x81\x88\x8A\x8C\x8D\x8E\x8F\x90\x98\x9A\x9C\x9D\x9E\x9F\xAA\xD2\xFF"},
    {1254, "\x81\x8D\x8E\x8F\x90\x9D\x9E"},
    {1255, "\x81\x8A\x8C\x8D\x8E\x8F\x90\x9A\x9C\x9D\x9E\x9F\xD9\xDA\xDB\xDC\xDD\xDE\xDF\xFB\xFC\xFF"},
    {1257, "\x81\x83\x88\x8A\x8C\x90\x98\x9A\x9C\x9F\xA1\xA5"},
    {1258, "\x81\x8A\x8D\x8E\x8F\x90\x9A\x9D\x9E"},
});

constexpr unsigned utf8 = 65001;

std::optional<std::size_t> FirstNotUtf8(std::string_view bytes) {
    for (std::size_t position = 0; position < bytes.size();) {
        const TextCharacter character = FirstCharacter(bytes.substr(position));
        if (!character.isValid) return position;
        position += character.length;
    }
    return std::nullopt;
}

// Which bytes begin a character of two bytes, and which can follow them.
struct DoubleBytes {
    unsigned page;
    bool (*isLead)(unsigned char byte);
    bool (*isTrail)(unsigned char byte);
};

bool IsBetween(unsigned char byte, unsigned least, unsigned most) {
    return byte >= least && byte <= most;
}

constexpr auto doubleBytes = std::to_array<DoubleBytes>({
    {932, [](unsigned char byte) { return IsBetween(byte, 0x81, 0x9F) || IsBetween(byte, 0xE0, 0xFC); },
     [](unsigned char byte) { return IsBetween(byte, 0x40, 0xFC) && byte != 0x7F; }},
    {936, [](unsigned char byte) { return IsBetween(byte, 0x81, 0xFE); },
     [](unsigned char byte) { return IsBetween(byte, 0x40, 0xFE) && byte != 0x7F; }},
    {949, [](unsigned char byte) { return IsBetween(byte, 0x81, 0xFE); },
     [](unsigned char byte) {
         return IsBetween(byte, 0x41, 0x5A) || IsBetween(byte, 0x61, 0x7A) || IsBetween(byte, 0x81, 0xFE);
     }},
    {950, [](unsigned char byte) { return IsBetween(byte, 0x81, 0xFE); },
     [](unsigned char byte) { return IsBetween(byte, 0x40, 0x7E) || IsBetween(byte, 0xA1, 0xFE); }},
});

const DoubleBytes* DoubleBytesOf(unsigned page) {
    const auto* const found = std::ranges::find(doubleBytes, page, &DoubleBytes::page);
    return found == doubleBytes.end() ? nullptr : found;
}

// The length of the character at the start of the bytes, at least 1; 0 for half a character, or none.
std::size_t CharacterLength(const DoubleBytes& page, std::string_view bytes) {
    if (!page.isLead(static_cast<unsigned char>(bytes.front()))) return 1;
    return bytes.size() > 1 && page.isTrail(static_cast<unsigned char>(bytes[1])) ? 2 : 0;
}

std::optional<std::size_t> FirstHalf(const DoubleBytes& page, std::string_view bytes) {
    for (std::size_t position = 0; position < bytes.size();) {
        const std::size_t length = CharacterLength(page, bytes.substr(position));
        if (length == 0) return position;
        position += length;
    }
    return std::nullopt;
}

std::size_t LengthIn(unsigned page, const DoubleBytes* pairs, std::string_view bytes) {
    if (page == utf8) return FirstCharacter(bytes).length;
    return pairs == nullptr ? 1 : std::max<std::size_t>(CharacterLength(*pairs, bytes), 1);
}

}  // namespace

bool IsCodePage(unsigned page) {
    const bool isOfWindows = page >= 1250 && page <= 1258;
    return isOfWindows || std::ranges::find(otherPages, page) != otherPages.end();
}

std::optional<std::size_t> FirstForeignByte(unsigned page, std::string_view bytes) {
    if (page == utf8) return FirstNotUtf8(bytes);
    if (const DoubleBytes* pairs = DoubleBytesOf(page)) return FirstHalf(*pairs, bytes);
    const auto unused = std::ranges::find(unusedBytes, page, &UnusedBytes::page);
    if (unused == unusedBytes.end()) return std::nullopt;
    const std::size_t found = bytes.find_first_of(unused->bytes);
    return found == std::string_view::npos ? std::nullopt : std::optional(found);
}

std::optional<std::size_t> FirstSplitCharacter(unsigned page, std::string_view bytes, std::size_t piece) {
    const DoubleBytes* const pairs = DoubleBytesOf(page);
    if (page != utf8 && pairs == nullptr) return std::nullopt;
    std::size_t lineStart = 0;
    for (std::size_t position = 0; position < bytes.size();) {
        const std::size_t length = LengthIn(page, pairs, bytes.substr(position));
        const std::size_t first = position - lineStart;
        if (first / piece != (first + length - 1) / piece) return position;
        if (bytes[position] == '\n') lineStart = position + 1;
        position += length;
    }
    return std::nullopt;
}

}  // namespace packagecheck
