#include <algorithm>
#include <charconv>
#include <utility>

#include "discovery/NpaReply.h"
#include "standins/discovery/Bytes.h"
#include "tests/fuzz/Records.h"

namespace {

// The inputs begin behind the head that the fuzzer puts before them; some are packets with a head of their
// own.
constexpr char startOfPacket = '\xA5';
constexpr std::size_t packetHead = 10;
constexpr std::size_t layoutSize = 36;
constexpr int deepestGroup = 8;

// The number behind a label, which is then gone from the text; widths that no packet has are cut.
std::uint32_t TakeWidth(std::string_view& text, std::string_view label) {
    constexpr std::uint32_t widest = 8;
    const std::size_t found = text.find(label);
    if (found == std::string_view::npos) return 0;
    text.remove_prefix(found + label.size());
    std::uint32_t width = 0;
    std::from_chars(text.data(), text.data() + text.size(), width);
    return std::min(width, widest);
}

NpaLayout LayoutIn(std::string_view text) {
    NpaLayout layout;
    layout.idWidth = TakeWidth(text, "ID:");
    layout.typeWidth = TakeWidth(text, "DT:");
    layout.countWidth = TakeWidth(text, "NE:");
    layout.groupLengthWidth = TakeWidth(text, "LD:");
    layout.leafLengthWidth = TakeWidth(text, "LD:");
    return layout;
}

std::size_t NumberIn(std::string_view field) {
    std::size_t number = 0;
    for (const char byte : field) number = number << 8 | static_cast<std::uint8_t>(byte);
    return number;
}

// Elements one behind the other: id and type as the head, and either the bytes of a leaf or the elements of a
// group.
class NpaFormat {
public:
    explicit NpaFormat(std::string_view head) : layout(LayoutIn(head)) {}

    std::vector<Record> Read(std::string_view bytes, int depth) const {
        std::vector<Record> elements;
        discovery::ByteReader reader(bytes);
        try {
            while (!reader.IsAtEnd() && HeadWidth() > 0) elements.push_back(ReadElement(reader, depth));
        } catch (const discovery::Malformed&) {
            // What is left is no element.
            return elements;
        }
        return elements;
    }

    std::string Write(const Record& record) const {
        std::string contents = record.body;
        for (const Record& part : record.parts) contents += Write(part);
        std::string bytes = record.head;
        bytes.resize(HeadWidth());
        const bool isGroup = IsGroup(bytes);
        if (isGroup) AppendNumber(bytes, record.parts.size(), layout.countWidth);
        AppendNumber(bytes, contents.size(), isGroup ? layout.groupLengthWidth : layout.leafLengthWidth);
        return bytes + contents;
    }

private:
    std::size_t HeadWidth() const { return layout.idWidth + layout.typeWidth; }
    bool IsGroup(std::string_view head) const { return layout.typeWidth == 0 || head.back() == 0; }

    Record ReadElement(discovery::ByteReader& reader, int depth) const {
        Record record{.head = std::string(reader.Take(HeadWidth()))};
        const bool isGroup = IsGroup(record.head);
        if (isGroup) reader.Take(layout.countWidth);
        const std::size_t size =
            NumberIn(reader.Take(isGroup ? layout.groupLengthWidth : layout.leafLengthWidth));
        const std::string_view contents = reader.Take(size);
        if (isGroup && depth < deepestGroup) {
            record.parts = Read(contents, depth + 1);
        } else {
            record.body = contents;
        }
        return record;
    }

    static void AppendNumber(std::string& bytes, std::size_t number, std::size_t width) {
        for (std::size_t place = width; place > 0; --place) {
            bytes += static_cast<char>(static_cast<std::uint8_t>(number >> (place - 1) * 8));
        }
    }

    NpaLayout layout;
};

std::size_t HeadSize(std::string_view input) {
    const std::size_t size = input.starts_with(startOfPacket) ? packetHead + layoutSize : layoutSize;
    return std::min(input.size(), size);
}

// Sets the two lengths of a packet that has a head.
void RepairHead(std::string& packet) {
    if (!packet.starts_with(startOfPacket) || packet.size() < packetHead) return;
    for (const auto& [place, before] : {std::pair<std::size_t, std::size_t>{1, 3}, {8, packetHead}}) {
        std::string length;
        discovery::AppendBigEndian(length, static_cast<std::uint32_t>(packet.size() - before), 2);
        packet.replace(place, length.size(), length);
    }
}

}  // namespace

Record ReadRecords(std::string_view input) {
    const std::size_t size = HeadSize(input);
    const std::string_view head = input.substr(0, size);
    return {.body = std::string(head), .parts = NpaFormat(head).Read(input.substr(size), 0)};
}

std::string WriteRecords(const Record& whole) {
    const NpaFormat format(whole.body);
    std::string bytes = whole.body;
    for (const Record& part : whole.parts) bytes += format.Write(part);
    RepairHead(bytes);
    return bytes;
}
