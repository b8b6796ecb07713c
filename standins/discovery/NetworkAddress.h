// Addresses of the network as values, and the subnets that they lie in.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "standins/discovery/Bytes.h"

namespace discovery {

// An address of IPv4 or IPv6; a link-local one of IPv6 goes with the number of its interface.
class NetworkAddress {
public:
    NetworkAddress() = default;
    // Host byte order.
    explicit NetworkAddress(std::uint32_t ipV4);
    explicit NetworkAddress(const std::array<std::uint8_t, 16>& ipV6, std::uint32_t zoneOfLink = 0);
    // Four or sixteen bytes in network order; nothing for any other count.
    static std::optional<NetworkAddress> FromBytes(BytesView bytes, std::uint32_t zone = 0);
    // An address as people write it, an IPv6 one with or without a zone after "%", or as Windows writes an
    // IPv6 one where a colon cannot stand (2001-db8--1.ipv6-literal.net). Nothing for any other text.
    static std::optional<NetworkAddress> FromText(std::wstring_view text);

    bool IsIpV6() const { return isIpV6; }
    bool IsLinkLocal() const;
    // Neither the empty, the local machine's, a multicast nor the broadcast address.
    bool IsHost() const;
    std::uint32_t IpV4() const;
    const std::array<std::uint8_t, 16>& Octets() const { return octets; }
    std::uint32_t Zone() const { return zone; }

    // As people write it (RFC 5952 for IPv6), with "%" and the zone where it has one.
    std::string ToText() const;
    // The same for IPv4; for IPv6 the form without colons that Windows takes wherever a host's name can
    // stand.
    std::string ToHostText() const;

    friend bool operator==(const NetworkAddress&, const NetworkAddress&) = default;
    friend bool operator<(const NetworkAddress& left, const NetworkAddress& right) {
        return std::tie(left.isIpV6, left.octets, left.zone) <
               std::tie(right.isIpV6, right.octets, right.zone);
    }

private:
    bool isIpV6 = false;
    // That of IPv4 has the first four.
    std::array<std::uint8_t, 16> octets{};
    std::uint32_t zone = 0;
};

// A subnet of IPv4.
class Subnet {
public:
    // Any address in it, and how many leading bits its addresses share (0 to 32).
    Subnet(NetworkAddress member, int prefixLength);
    // The form of a search document, "address:mask". Nothing where the mask is none or its ones are not in
    // front.
    static std::optional<Subnet> FromText(std::wstring_view text);

    bool Contains(const NetworkAddress& address) const;
    NetworkAddress Broadcast() const;
    // The addresses that hosts can have: all but the subnet's own and its broadcast; in the two smallest all.
    std::uint32_t HostCount() const;
    NetworkAddress Host(std::uint32_t index) const;
    int PrefixLength() const { return bits; }

private:
    std::uint32_t Mask() const;

    std::uint32_t base;
    int bits;
};

}  // namespace discovery

template <>
struct std::hash<discovery::NetworkAddress> {
    std::size_t operator()(const discovery::NetworkAddress& address) const noexcept {
        std::size_t value = address.Zone();
        for (const std::uint8_t octet : address.Octets()) value = value * 257 + octet;
        return value;
    }
};
