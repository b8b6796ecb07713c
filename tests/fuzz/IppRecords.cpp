#include <algorithm>

#include "standins/discovery/Bytes.h"
#include "tests/fuzz/Records.h"

namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::uint8_t firstValue = 0x10;
constexpr std::size_t headSize = 8;

bool IsHttp(std::string_view input) {
    return input.starts_with("HTTP/");
}

// The lines of an HTTP answer, with their ends.
std::vector<Record> ReadLines(std::string_view input) {
    std::vector<Record> lines;
    while (!input.empty()) {
        const std::size_t end = input.find(lineEnd);
        const std::size_t size = end == std::string_view::npos ? input.size() : end + lineEnd.size();
        lines.push_back({.body = std::string(input.substr(0, size))});
        input.remove_prefix(size);
    }
    return lines;
}

std::string_view TakeField(discovery::ByteReader& reader) {
    const std::size_t size = reader.Number16();
    return reader.Take(size);
}

// The head is the tag, of a value with the name behind it; a group has nothing but its tag.
std::vector<Record> ReadAttributes(std::string_view input) {
    std::vector<Record> attributes;
    discovery::ByteReader reader(input);
    try {
        while (!reader.IsAtEnd()) {
            Record attribute{.head = std::string(reader.Take(1))};
            if (static_cast<std::uint8_t>(attribute.head.front()) >= firstValue) {
                attribute.head += TakeField(reader);
                attribute.body = TakeField(reader);
            }
            attributes.push_back(std::move(attribute));
        }
    } catch (const discovery::Malformed&) {
        // What is left is no attribute.
        return attributes;
    }
    return attributes;
}

void AppendField(std::string& bytes, std::string_view field) {
    discovery::AppendBigEndian(bytes, static_cast<std::uint32_t>(field.size()), 2);
    bytes += field;
}

void AppendIppPart(std::string& bytes, const Record& part) {
    if (part.head.empty()) {
        bytes += part.body;
        return;
    }
    bytes += part.head.front();
    if (static_cast<std::uint8_t>(part.head.front()) < firstValue) return;
    AppendField(bytes, std::string_view(part.head).substr(1));
    AppendField(bytes, part.body);
}

}  // namespace

Record ReadRecords(std::string_view input) {
    if (IsHttp(input)) return {.parts = ReadLines(input)};
    const std::size_t size = std::min(input.size(), headSize);
    return {.body = std::string(input.substr(0, size)), .parts = ReadAttributes(input.substr(size))};
}

std::string WriteRecords(const Record& whole) {
    std::string bytes = whole.body;
    for (const Record& part : whole.parts) AppendIppPart(bytes, part);
    return bytes;
}
