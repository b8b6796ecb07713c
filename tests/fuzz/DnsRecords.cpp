#include <algorithm>

#include "standins/discovery/Bytes.h"
#include "tests/fuzz/Records.h"

namespace {

using discovery::ByteReader;

constexpr std::size_t numberOfQuestions = 4;
constexpr std::size_t headSize = 6;

// A name as it is written without pointers, so that it can stand anywhere. Pointers lead to less than the
// limit.
std::string PlainName(std::string_view packet, ByteReader& reader, std::size_t limit) {
    constexpr std::uint8_t pointer = 0xC0;
    constexpr std::size_t longest = 255;
    std::string name;
    while (name.size() <= longest) {
        const std::uint8_t size = reader.Byte();
        if (size >= pointer) {
            const std::size_t target = std::size_t{size & 0x3FU} << 8 | reader.Byte();
            if (target >= limit) throw discovery::Malformed();
            ByteReader there(packet);
            there.Take(target);
            return name + PlainName(packet, there, target);
        }
        name += static_cast<char>(size);
        if (size == 0) return name;
        name += reader.Take(size);
    }
    throw discovery::Malformed();
}

std::string PlainData(std::string_view packet, std::uint16_t type, std::size_t start, std::size_t size) {
    constexpr std::uint16_t ptr = 12;
    constexpr std::uint16_t srv = 33;
    const std::size_t before = type == srv ? 6 : 0;
    if ((type != ptr && type != srv) || size < before) return std::string(packet.substr(start, size));
    ByteReader reader(packet.substr(0, start + size));
    reader.Take(start);
    const std::string numbers(reader.Take(before));
    return numbers + PlainName(packet, reader, packet.size());
}

Record ReadResource(std::string_view packet, ByteReader& reader) {
    Record record{.head = PlainName(packet, reader, packet.size())};
    const std::string_view fields = reader.Take(8);
    record.head += fields;
    const std::size_t size = reader.Number16();
    const std::size_t start = reader.Position();
    reader.Take(size);
    record.body = PlainData(packet, ByteReader(fields).Number16(), start, size);
    return record;
}

void ReadSections(std::string_view packet, Record& whole) {
    ByteReader reader(packet);
    whole.head = reader.Take(headSize);
    reader.Take(headSize);
    const std::uint16_t questions = ByteReader(packet.substr(numberOfQuestions)).Number16();
    for (std::uint16_t count = 0; count < questions; ++count) {
        whole.body += PlainName(packet, reader, packet.size());
        whole.body += reader.Take(4);
    }
    while (!reader.IsAtEnd()) whole.parts.push_back(ReadResource(packet, reader));
}

}  // namespace

// What stands behind the last whole record is lost.
Record ReadRecords(std::string_view input) {
    Record whole;
    try {
        ReadSections(input, whole);
    } catch (const discovery::Malformed&) {
        if (whole.parts.empty()) whole.body = input.substr(std::min(input.size(), 2 * headSize));
    }
    return whole;
}

std::string WriteRecords(const Record& whole) {
    std::string bytes = whole.head;
    bytes.resize(headSize);
    discovery::AppendBigEndian(bytes, static_cast<std::uint32_t>(whole.parts.size()), 2);
    bytes.append(4, '\0');
    bytes += whole.body;
    for (const Record& record : whole.parts) {
        bytes += record.head;
        discovery::AppendBigEndian(bytes, static_cast<std::uint32_t>(record.body.size()), 2);
        bytes += record.body;
    }
    return bytes;
}
