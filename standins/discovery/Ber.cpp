#include "standins/discovery/Ber.h"

#include <algorithm>

namespace discovery {

namespace {

constexpr std::uint8_t longForm = 0x80;
constexpr std::uint8_t moreFollows = 0x80;
constexpr std::uint32_t arcsPerRoot = 40;

std::size_t ReadLength(ByteReader& reader) {
    const std::uint8_t first = reader.Byte();
    if (first < longForm) return first;
    const int width = first - longForm;
    // By design: the indefinite form is refused with those that count more than a packet can hold.
    if (width < 1 || width > 4) throw Malformed();
    std::size_t length = 0;
    for (int place = 0; place < width; ++place) length = length << 8 | reader.Byte();
    return length;
}

std::uint32_t ReadArc(ByteReader& reader) {
    std::uint64_t arc = 0;
    for (;;) {
        const std::uint8_t byte = reader.Byte();
        arc = arc << 7 | (byte & 0x7F);
        if (arc > 0xFFFFFFFF) throw Malformed();
        if ((byte & moreFollows) == 0) return static_cast<std::uint32_t>(arc);
    }
}

void AppendArc(Bytes& bytes, std::uint32_t arc) {
    Bytes digits;
    do {
        const auto digit = static_cast<std::uint8_t>(arc & 0x7F);
        digits += static_cast<char>(digits.empty() ? digit : digit | moreFollows);
        arc >>= 7;
    } while (arc != 0);
    bytes.append(digits.rbegin(), digits.rend());
}

}  // namespace

BerValue ReadBer(ByteReader& reader) {
    const std::uint8_t tag = reader.Byte();
    const std::size_t length = ReadLength(reader);
    return {.tag = tag, .contents = reader.Take(length)};
}

BytesView ReadBer(ByteReader& reader, BerTag tag) {
    const BerValue value = ReadBer(reader);
    if (!value.Is(tag)) throw Malformed();
    return value.contents;
}

std::int64_t BerInteger(BytesView contents) {
    if (contents.empty() || contents.size() > sizeof(std::int64_t)) throw Malformed();
    std::uint64_t number = (contents.front() & 0x80) != 0 ? ~std::uint64_t{0} : 0;
    for (const char byte : contents) number = number << 8 | static_cast<std::uint8_t>(byte);
    return static_cast<std::int64_t>(number);
}

Oid BerOid(BytesView contents) {
    ByteReader reader(contents);
    const std::uint32_t roots = ReadArc(reader);
    const std::uint32_t root = std::min(roots / arcsPerRoot, 2U);
    Oid oid{root, roots - root * arcsPerRoot};
    while (!reader.IsAtEnd()) {
        if (oid.size() == mostArcs) throw Malformed();
        oid.push_back(ReadArc(reader));
    }
    return oid;
}

Bytes MakeBer(std::uint8_t tag, BytesView contents) {
    Bytes bytes(1, static_cast<char>(tag));
    if (contents.size() < longForm) {
        AppendBigEndian(bytes, static_cast<std::uint32_t>(contents.size()), 1);
    } else {
        AppendBigEndian(bytes, longForm + 2, 1);
        AppendBigEndian(bytes, static_cast<std::uint32_t>(contents.size()), 2);
    }
    return bytes.append(contents);
}

Bytes MakeBer(BerTag tag, BytesView contents) {
    return MakeBer(static_cast<std::uint8_t>(tag), contents);
}

Bytes MakeBerInteger(std::int32_t number) {
    Bytes contents;
    AppendBigEndian(contents, static_cast<std::uint32_t>(number), sizeof number);
    const auto isSpare = [&] {
        const bool isNegative = (contents[1] & 0x80) != 0;
        return contents.front() == (isNegative ? '\xFF' : '\0');
    };
    while (contents.size() > 1 && isSpare()) contents.erase(0, 1);
    return MakeBer(BerTag::Integer, contents);
}

Bytes MakeBerOid(const Oid& oid) {
    Bytes contents;
    AppendArc(contents, oid[0] * arcsPerRoot + oid[1]);
    std::for_each(oid.begin() + 2, oid.end(), [&](std::uint32_t arc) { AppendArc(contents, arc); });
    return MakeBer(BerTag::ObjectId, contents);
}

}  // namespace discovery
