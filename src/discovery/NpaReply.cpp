#include "discovery/NpaReply.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint8_t startByte = 0xA5;
constexpr std::size_t headerLength = 3;
constexpr std::size_t blockStart = 8;
constexpr std::size_t blockLengthWidth = 2;
constexpr std::size_t layoutStart = 6;
// The tree begins here whatever the length of the texts in front of it.
constexpr std::size_t treeStart = 38;
// No width of a real reply comes near it.
constexpr std::uint32_t widestField = 0xFFFF;

constexpr std::string_view faxKey = "1.1.3.17.3";
constexpr auto numberKeys = std::to_array<std::string_view>(
    {"1.1.1.1", "1.1.1.2", "1.1.2.4", "1.1.3.1", "1.1.3.2", "1.1.3.3", "1.1.3.8.2", "1.1.3.8.1", "1.1.3.9.1",
     "1.1.3.9.2", "1.1.3.14.1", "1.1.3.5", faxKey});
constexpr auto textKeys =
    std::to_array<std::string_view>({"1.1.2.1", "1.1.2.2", "1.1.2.3", "1.1.3.12", "1.1.2.5"});

enum ElementType : std::uint8_t { group = 0, number = 1, text = 2 };

struct MalformedReply : std::runtime_error {
    MalformedReply() : std::runtime_error("malformed reply") {}
};

// A place in bytes that never leaves them.
class FieldReader {
public:
    explicit FieldReader(Bytes source, std::size_t start = 0) : bytes(source) { Skip(start); }

    void Skip(std::uint64_t count) {
        if (count > bytes.size() - position) throw MalformedReply();
        position += static_cast<std::size_t>(count);
    }
    Bytes Take(std::uint64_t count) {
        const std::size_t start = position;
        Skip(count);
        return bytes.subspan(start, static_cast<std::size_t>(count));
    }
    std::size_t Position() const { return position; }

private:
    Bytes bytes;
    std::size_t position = 0;
};

std::uint32_t LowBits(Bytes field) {
    std::uint32_t value = 0;
    for (const std::uint8_t byte : field) value = value << 8 | byte;
    return value;
}

// A length that does not fit into the type is far beyond the end of any reply.
std::uint64_t Length(Bytes field) {
    const Bytes low = field.last(std::min(field.size(), sizeof(std::uint64_t) - 1));
    const Bytes high = field.first(field.size() - low.size());
    if (std::ranges::any_of(high, [](std::uint8_t byte) { return byte != 0; })) {
        throw MalformedReply();
    }
    std::uint64_t value = 0;
    for (const std::uint8_t byte : low) value = value << 8 | byte;
    return value;
}

std::uint8_t LowByte(Bytes field) {
    return field.empty() ? std::uint8_t{0} : field.back();
}

std::string_view AsText(Bytes field) {
    return {reinterpret_cast<const char*>(field.data()), field.size()};
}

// The decimal number after a label; 0 for a label that is missing.
std::uint32_t Width(std::string_view texts, std::string_view label) {
    const std::size_t found = texts.find(label);
    if (found == std::string_view::npos) return 0;
    std::uint32_t width = 0;
    for (const char digit : texts.substr(found + label.size())) {
        if (digit < '0' || digit > '9') break;
        width = width * 10 + static_cast<std::uint32_t>(digit - '0');
        if (width > widestField) throw MalformedReply();
    }
    return width;
}

// Cuts the next brace group off, with its closing brace and the two bytes after that.
std::string_view NextLayoutGroup(std::string_view& rest) {
    constexpr std::size_t between = 3;
    const std::size_t end = rest.find('}');
    if (end == std::string_view::npos) throw MalformedReply();
    const std::string_view found = rest.substr(0, end);
    rest.remove_prefix(std::min(rest.size(), end + between));
    return found;
}

NpaLayout ReadLayout(Bytes block) {
    NpaLayout layout;
    std::string_view rest = AsText(block.subspan(layoutStart));
    const std::string_view heads = NextLayoutGroup(rest);
    layout.idWidth = Width(heads, "ID:");
    layout.typeWidth = Width(heads, "DT:");
    const std::string_view groups = NextLayoutGroup(rest);
    layout.countWidth = Width(groups, "NE:");
    layout.groupLengthWidth = Width(groups, "LD:");
    layout.leafLengthWidth = Width(NextLayoutGroup(rest), "LD:");
    return layout;
}

// The checked block of a packet, from its own length field on.
Bytes BlockOf(Bytes packet) {
    FieldReader reader(packet);
    if (LowByte(reader.Take(1)) != startByte) throw MalformedReply();
    if (Length(reader.Take(2)) != packet.size() - headerLength) throw MalformedReply();
    const Bytes fromBlock = packet.subspan(std::min(packet.size(), blockStart));
    const std::uint64_t length = Length(FieldReader(fromBlock).Take(blockLengthWidth));
    const Bytes block = FieldReader(fromBlock).Take(length + blockLengthWidth);
    if (block.size() < layoutStart || block[4] != 'P' || block[5] != '{') throw MalformedReply();
    return block;
}

// Walks the tree with a stack of its own, for a packet can nest as deep as it has bytes. A reply that lies
// about its lengths can name the same bytes again and again, so what the elements take up is counted: those
// of an honest reply share no byte.
class TreeWalk {
public:
    TreeWalk(Bytes block, const NpaLayout& widths, const Utf8Converter& converter)
        : bytes(block), layout(widths), toWide(converter), bytesLeft(block.size()) {}

    NpaDeviceInfo Run() {
        Enter(treeStart);
        while (!open.empty()) {
            if (open.back().remaining == 0) {
                open.pop_back();
            } else {
                --open.back().remaining;
                ReadElement();
            }
        }
        return std::move(info);
    }

private:
    struct OpenGroup {
        std::uint64_t remaining;
        // Where the next element stands.
        std::size_t position;
        std::size_t pathLength;
    };

    void Enter(std::size_t position) {
        FieldReader reader(bytes, position);
        reader.Skip(layout.idWidth + layout.typeWidth);
        const std::uint64_t count = Length(reader.Take(layout.countWidth));
        reader.Skip(layout.groupLengthWidth);
        open.push_back({.remaining = count, .position = reader.Position(), .pathLength = path.size()});
    }

    void ReadElement() {
        const std::size_t start = open.back().position;
        FieldReader reader(bytes, start);
        const auto id = static_cast<std::int8_t>(LowByte(reader.Take(layout.idWidth)));
        const std::uint8_t type = LowByte(reader.Take(layout.typeWidth));
        path.resize(open.back().pathLength);
        path += '.' + std::to_string(id);
        if (type == ElementType::group) {
            ReadGroup(start);
        } else {
            ReadLeaf(start, reader, type);
        }
    }

    void ReadGroup(std::size_t start) {
        FieldReader after(bytes, start);
        after.Skip(layout.idWidth + layout.typeWidth + layout.countWidth);
        const std::uint64_t length = Length(after.Take(layout.groupLengthWidth));
        Charge(after.Position() - start);
        after.Skip(length);
        open.back().position = after.Position();
        // All paths below hold the text if one does.
        if (open.size() > 1 || path.find("1.1") != std::string::npos) Enter(start);
    }

    void ReadLeaf(std::size_t start, FieldReader& reader, std::uint8_t type) {
        const Bytes value = reader.Take(Length(reader.Take(layout.leafLengthWidth)));
        Charge(reader.Position() - start);
        open.back().position = reader.Position();
        // Longer than any key, and long paths are not worth a look.
        if (path.size() > faxKey.size()) return;
        if (type == ElementType::number && Holds(numberKeys)) info.numbers[path] = LowBits(value);
        if (type == ElementType::text && Holds(textKeys)) info.texts[path] = toWide(AsText(value));
    }

    void Charge(std::size_t count) {
        if (count > bytesLeft) throw MalformedReply();
        bytesLeft -= count;
    }

    template <class Keys>
    bool Holds(const Keys& keys) const {
        return std::ranges::find(keys, path) != keys.end();
    }

    Bytes bytes;
    NpaLayout layout;
    const Utf8Converter& toWide;
    std::size_t bytesLeft;
    std::string path = "1";
    std::vector<OpenGroup> open;
    NpaDeviceInfo info;
};

}  // namespace

bool NpaDeviceInfo::HasFax() const {
    const auto found = numbers.find(faxKey);
    return found != numbers.end() && found->second != 0;
}

std::optional<NpaDeviceInfo> DecodeNpaReply(std::span<const std::uint8_t> packet,
                                            const Utf8Converter& toWide) {
    try {
        const Bytes block = BlockOf(packet);
        return TreeWalk(block, ReadLayout(block), toWide).Run();
    } catch (const MalformedReply&) {
        return std::nullopt;
    }
}
