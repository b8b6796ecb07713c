#include "standins/discovery/FaxPacket.h"

#include <array>
#include <string_view>

#include "standins/discovery/Bytes.h"

namespace discovery {

namespace {

constexpr std::uint32_t packetStart = 0xA5;
// One byte for the id and the type of an element and for the count of a group, two for lengths.
constexpr std::string_view layout = "P{ID:1,DT:1}P{NE:1,LD:2}P{LD:2}";
// The tree begins at a fixed place of the block, whatever the length of the texts before it.
constexpr std::size_t treePlace = 38;
constexpr std::size_t headerLength = 5;
constexpr std::uint32_t groupType = 0;
constexpr std::uint32_t numberType = 1;
constexpr std::uint32_t faxId = 3;
// From the innermost group out.
constexpr auto enclosingGroups = std::to_array<std::uint32_t>({17, 3, 1, 1});

Bytes Leaf(std::uint32_t id, std::uint32_t value) {
    Bytes bytes;
    AppendBigEndian(bytes, id, 1);
    AppendBigEndian(bytes, numberType, 1);
    AppendBigEndian(bytes, 1, 2);
    AppendBigEndian(bytes, value, 1);
    return bytes;
}

Bytes GroupOf(std::uint32_t id, const Bytes& element) {
    Bytes bytes;
    AppendBigEndian(bytes, id, 1);
    AppendBigEndian(bytes, groupType, 1);
    AppendBigEndian(bytes, 1, 1);
    AppendBigEndian(bytes, static_cast<std::uint32_t>(element.size()), 2);
    return bytes + element;
}

}  // namespace

std::vector<std::uint8_t> MakeFaxPacket(bool hasFax) {
    Bytes tree = Leaf(faxId, hasFax ? 1 : 0);
    for (const std::uint32_t id : enclosingGroups) tree = GroupOf(id, tree);
    Bytes block(4, '\0');
    block += layout;
    block.resize(treePlace, '\0');
    block += tree;
    Bytes content(headerLength, '\0');
    // The length of the block counts what follows it.
    const auto blockLength = static_cast<std::uint32_t>(block.size() - 2);
    block[0] = static_cast<char>(blockLength >> 8);
    block[1] = static_cast<char>(blockLength & 0xFF);
    content += block;
    Bytes packet;
    AppendBigEndian(packet, packetStart, 1);
    AppendBigEndian(packet, static_cast<std::uint32_t>(content.size()), 2);
    packet += content;
    return {packet.begin(), packet.end()};
}

}  // namespace discovery
