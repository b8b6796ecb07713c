// Values in the Basic Encoding Rules (ITU-T X.690), as far as SNMP uses them: definite lengths, tags of one
// byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "standins/discovery/Bytes.h"

namespace discovery {

// An object identifier, arc by arc.
using Oid = std::vector<std::uint32_t>;

enum class BerTag : std::uint8_t {
    Integer = 0x02,
    Octets = 0x04,
    Null = 0x05,
    ObjectId = 0x06,
    Sequence = 0x30
};

// More arcs than any identifier of a management base has.
inline constexpr std::size_t mostArcs = 128;

// One value: its tag, and its contents, which point into the bytes that were read.
struct BerValue {
    std::uint8_t tag = 0;
    BytesView contents;

    bool Is(BerTag expected) const { return tag == static_cast<std::uint8_t>(expected); }
};

// All of these throw Malformed where the bytes are not such a value.
BerValue ReadBer(ByteReader& reader);
// The contents of the next value, which must have that tag.
BytesView ReadBer(ByteReader& reader, BerTag tag);
// A signed number of at most eight bytes.
std::int64_t BerInteger(BytesView contents);
Oid BerOid(BytesView contents);

Bytes MakeBer(std::uint8_t tag, BytesView contents);
Bytes MakeBer(BerTag tag, BytesView contents);
Bytes MakeBerInteger(std::int32_t number);
// The identifier must have two arcs at least.
Bytes MakeBerOid(const Oid& oid);

}  // namespace discovery
