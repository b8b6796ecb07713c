// Builds the packets by which devices answer, the well-formed ones and the broken ones.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Npa {

using Bytes = std::vector<std::uint8_t>;

// The widths of the fields and the text that announces them.
struct Widths {
    std::size_t id = 1;
    std::size_t type = 1;
    std::size_t count = 1;
    std::size_t groupLength = 2;
    std::size_t leafLength = 2;
};

// One element of a tree, with all that belongs to it.
class Builder {
public:
    explicit Builder(Widths fieldWidths = {}) : widths(fieldWidths) {}

    Bytes Number(int id, const Bytes& value) const { return Leaf(id, 1, value); }
    Bytes Text(int id, std::string_view value) const { return Leaf(id, 2, {value.begin(), value.end()}); }
    Bytes Leaf(int id, int type, const Bytes& value) const;
    Bytes Group(int id, const std::vector<Bytes>& elements) const;
    // A group that claims another number of elements or another length than it has.
    Bytes LyingGroup(int id, std::uint64_t count, std::uint64_t length, const Bytes& content) const;
    // The elements below the key, each in the group of its number: Below({1, 3}, x) is the group 1 with the
    // group 3 with x.
    Bytes Below(const std::vector<int>& ids, const Bytes& element) const;

    // The whole packet for the elements of the root.
    Bytes Packet(const std::vector<Bytes>& elements) const;
    // The texts that announce the widths.
    std::string Layout() const;

private:
    Widths widths;
};

// A packet with that layout text and that tree at its place, whatever they are.
Bytes PacketOf(std::string_view layout, const Bytes& tree);
// The bytes in hexadecimal digits, as a script takes them.
std::wstring Hex(const Bytes& packet);
// The packet of a device with that fax flag.
Bytes FaxReply(std::uint8_t flag);

}  // namespace Npa
