// What a search sends and receives, without the sockets that do it.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "standins/discovery/Bytes.h"
#include "standins/discovery/NetworkAddress.h"

namespace discovery {

// Since the search began.
using Time = std::chrono::milliseconds;

// The interface by which a packet goes out or came in, as an index into the list of the search's links;
// anyLink where the system chooses.
inline constexpr std::size_t anyLink = static_cast<std::size_t>(-1);
// The same for questions to addresses where mostly nobody is. The system holds such packets until it gives up
// looking for the neighbour, and what it holds fills the room of a socket: they have one of their own, so
// that no conversation is held up.
inline constexpr std::size_t sweepLink = static_cast<std::size_t>(-2);

struct Datagram {
    NetworkAddress peer;
    std::uint16_t port = 0;
    std::size_t link = anyLink;
    Bytes bytes;
};

inline constexpr std::uint16_t snmpPort = 161;
inline constexpr std::uint16_t multicastDnsPort = 5353;

}  // namespace discovery
