#include "discovery/NpaReply.h"
#include "tests/fuzz/FuzzInput.h"

namespace {

std::wstring Widen(std::string_view text) {
    return {text.begin(), text.end()};
}

// Puts the bytes into a packet whose lengths are right, so that the input reaches the layout and the tree.
std::vector<std::uint8_t> Packed(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t headLength = 10;
    const std::size_t blockSize = size + 2;
    std::vector<std::uint8_t> packet(headLength, 0);
    packet.insert(packet.end(), data, data + size);
    packet[0] = 0xA5;
    packet[1] = static_cast<std::uint8_t>((packet.size() - 3) >> 8);
    packet[2] = static_cast<std::uint8_t>(packet.size() - 3);
    packet[8] = static_cast<std::uint8_t>((blockSize - 2) >> 8);
    packet[9] = static_cast<std::uint8_t>(blockSize - 2);
    return packet;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    DecodeNpaReply({data, size}, Widen);
    const auto packet = Packed(data, size);
    const auto info = DecodeNpaReply(packet, Widen);
    if (info) Require(info->numbers.size() <= 13 && info->texts.size() <= 5);
    return 0;
}
