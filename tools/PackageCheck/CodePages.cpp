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

}  // namespace

bool IsCodePage(unsigned page) {
    const bool isOfWindows = page >= 1250 && page <= 1258;
    return isOfWindows || std::ranges::find(otherPages, page) != otherPages.end();
}

std::optional<std::size_t> FirstForeignByte(unsigned page, std::string_view bytes) {
    if (page == utf8) return FirstNotUtf8(bytes);
    const auto unused = std::ranges::find(unusedBytes, page, &UnusedBytes::page);
    if (unused == unusedBytes.end()) return std::nullopt;
    const std::size_t found = bytes.find_first_of(unused->bytes);
    return found == std::string_view::npos ? std::nullopt : std::optional(found);
}

}  // namespace packagecheck
