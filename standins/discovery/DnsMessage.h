// Messages of the Domain Name System (RFC 1035), as far as finding services by them needs (RFC 6762, RFC
// 6763).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "standins/discovery/Bytes.h"

namespace discovery {

// A name, label by label, without the empty one at its end. A label may hold any byte, points too.
using DnsName = std::vector<std::string>;

// The name of a text with points between the labels.
DnsName DnsNameOf(std::string_view text);
// Labels joined by points, in small ASCII letters: names that are equal are equal by it.
std::string KeyOf(const DnsName& name);

enum class DnsType : std::uint16_t { A = 1, Ptr = 12, Txt = 16, Aaaa = 28, Srv = 33 };

struct DnsQuestion {
    DnsName name;
    DnsType type = DnsType::Ptr;
};

struct DnsService {
    DnsName host;
    std::uint16_t port = 0;
};

struct DnsTexts {
    std::vector<Bytes> strings;
};

// The four or sixteen bytes of an address, the name that a PTR record leads to, and what TXT and SRV records
// say.
using DnsData = std::variant<std::monostate, Bytes, DnsName, DnsTexts, DnsService>;

struct DnsRecord {
    DnsName name;
    DnsType type = DnsType::A;
    DnsData data;
};

struct DnsResponse {
    std::uint16_t id = 0;
    // The answers with the records that come along.
    std::vector<DnsRecord> records;
};

// A multicast question that asks for answers to the sender alone.
Bytes EncodeDnsQuery(std::uint16_t id, const std::vector<DnsQuestion>& questions);
// Reads an answer; nothing where the bytes are none. Records of types other than those above are left out.
// Takes time in proportion to the bytes, whatever their pointers say.
std::optional<DnsResponse> DecodeDnsResponse(BytesView packet);

}  // namespace discovery
