#include "tests/fakes/NpaPacket.h"

#include <algorithm>

namespace Npa {

namespace {

constexpr std::size_t treeStart = 38;

void Append(Bytes& target, const Bytes& more) {
    target.insert(target.end(), more.begin(), more.end());
}

Bytes BigEndian(std::uint64_t value, std::size_t width) {
    Bytes bytes(width);
    for (std::size_t place = width; place-- > 0; value >>= 8) bytes[place] = static_cast<std::uint8_t>(value);
    return bytes;
}

Bytes Join(const std::vector<Bytes>& parts) {
    Bytes all;
    for (const Bytes& part : parts) Append(all, part);
    return all;
}

}  // namespace

Bytes Builder::Leaf(int id, int type, const Bytes& value) const {
    return Join({BigEndian(static_cast<std::uint64_t>(id), widths.id),
                 BigEndian(static_cast<std::uint64_t>(type), widths.type),
                 BigEndian(value.size(), widths.leafLength), value});
}

Bytes Builder::Group(int id, const std::vector<Bytes>& elements) const {
    const Bytes content = Join(elements);
    return LyingGroup(id, elements.size(), content.size(), content);
}

Bytes Builder::LyingGroup(int id, std::uint64_t count, std::uint64_t length, const Bytes& content) const {
    return Join({BigEndian(static_cast<std::uint64_t>(id), widths.id), BigEndian(0, widths.type),
                 BigEndian(count, widths.count), BigEndian(length, widths.groupLength), content});
}

Bytes Builder::Below(const std::vector<int>& ids, const Bytes& element) const {
    Bytes tree = element;
    std::for_each(ids.rbegin(), ids.rend(), [&](int id) { tree = Group(id, {tree}); });
    return tree;
}

Bytes Builder::Packet(const std::vector<Bytes>& elements) const {
    return PacketOf(Layout(), Group(1, elements));
}

std::string Builder::Layout() const {
    const auto width = [](std::size_t number) { return std::to_string(number); };
    return "P{ID:" + width(widths.id) + ",DT:" + width(widths.type) + "}P{NE:" + width(widths.count) +
           ",LD:" + width(widths.groupLength) + "}P{LD:" + width(widths.leafLength) + "}";
}

Bytes PacketOf(std::string_view layout, const Bytes& tree) {
    Bytes block(2, 0);
    block.insert(block.end(), layout.begin(), layout.end());
    block.resize(treeStart - 2, 0);
    Append(block, tree);
    const Bytes content = Join({Bytes(5, 0), BigEndian(block.size(), 2), block});
    return Join({{0xA5}, BigEndian(content.size(), 2), content});
}

std::wstring Hex(const Bytes& packet) {
    constexpr wchar_t digits[] = L"0123456789ABCDEF";
    std::wstring text;
    for (const std::uint8_t byte : packet) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

Bytes FaxReply(std::uint8_t flag) {
    const Builder builder;
    return builder.Packet({builder.Below({1, 3, 17}, builder.Number(3, {flag}))});
}

}  // namespace Npa
