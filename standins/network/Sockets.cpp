#include "standins/network/Sockets.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace discovery {

namespace {

sockaddr_in6 MakeIpV6(const NetworkAddress& address, std::uint16_t port) {
    sockaddr_in6 made{};
    made.sin6_family = AF_INET6;
    made.sin6_port = htons(port);
    made.sin6_scope_id = address.Zone();
    std::ranges::copy(address.Octets(), std::begin(made.sin6_addr.s6_addr));
    return made;
}

sockaddr_in MakeIpV4(const NetworkAddress& address, std::uint16_t port) {
    sockaddr_in made{};
    made.sin_family = AF_INET;
    made.sin_port = htons(port);
    made.sin_addr.s_addr = htonl(address.IpV4());
    return made;
}

}  // namespace

SocketAddress MakeSocketAddress(const NetworkAddress& address, std::uint16_t port) {
    SocketAddress made;
    if (address.IsIpV6()) {
        *reinterpret_cast<sockaddr_in6*>(&made.storage) = MakeIpV6(address, port);
        made.length = sizeof(sockaddr_in6);
    } else {
        *reinterpret_cast<sockaddr_in*>(&made.storage) = MakeIpV4(address, port);
        made.length = sizeof(sockaddr_in);
    }
    return made;
}

NetworkAddress AddressOf(const sockaddr* address) {
    if (address->sa_family == AF_INET) {
        return NetworkAddress(ntohl(reinterpret_cast<const sockaddr_in*>(address)->sin_addr.s_addr));
    }
    if (address->sa_family != AF_INET6) return {};
    const auto& ipV6 = *reinterpret_cast<const sockaddr_in6*>(address);
    std::array<std::uint8_t, 16> octets{};
    std::ranges::copy(ipV6.sin6_addr.s6_addr, octets.begin());
    return NetworkAddress(octets, ipV6.sin6_scope_id);
}

std::uint16_t PortOf(const sockaddr* address) {
    if (address->sa_family == AF_INET6)
        return ntohs(reinterpret_cast<const sockaddr_in6*>(address)->sin6_port);
    return ntohs(reinterpret_cast<const sockaddr_in*>(address)->sin_port);
}

}  // namespace discovery
