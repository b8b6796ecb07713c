#include "standins/discovery/Ber.h"
#include "tests/fuzz/Records.h"

namespace {

constexpr std::uint8_t isConstructed = 0x20;
constexpr int deepest = 8;

std::vector<Record> ReadValues(std::string_view bytes, int depth);

Record ReadValue(discovery::ByteReader& reader, int depth) {
    const discovery::BerValue value = discovery::ReadBer(reader);
    Record record{.head = std::string(1, static_cast<char>(value.tag))};
    if ((value.tag & isConstructed) != 0 && depth < deepest) {
        record.parts = ReadValues(value.contents, depth + 1);
    } else {
        record.body = value.contents;
    }
    return record;
}

std::vector<Record> ReadValues(std::string_view bytes, int depth) {
    std::vector<Record> values;
    discovery::ByteReader reader(bytes);
    while (!reader.IsAtEnd()) {
        const std::string_view rest = bytes.substr(reader.Position());
        try {
            values.push_back(ReadValue(reader, depth));
        } catch (const discovery::Malformed&) {
            values.push_back({.body = std::string(rest)});
            break;
        }
    }
    return values;
}

}  // namespace

Record ReadRecords(std::string_view input) {
    return {.parts = ReadValues(input, 0)};
}

std::string WriteRecords(const Record& whole) {
    std::string bytes = whole.body;
    for (const Record& part : whole.parts) bytes += WriteRecords(part);
    if (whole.head.empty()) return bytes;
    return discovery::MakeBer(static_cast<std::uint8_t>(whole.head.front()), bytes);
}
