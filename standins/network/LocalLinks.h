// The networks that this machine is in, as the system tells them.
#pragma once

#include <cstdint>
#include <vector>

#include "standins/discovery/Search.h"

namespace discovery {

// An interface that is up and leads to a local network.
struct LocalLink {
    Link link;
    // Its addresses of IPv4; none where it speaks IPv6 only.
    std::vector<NetworkAddress> addresses;
    // The number of the interface for IPv6; 0 where it does not speak it.
    std::uint32_t ipV6Index = 0;
};

// The interfaces but for the machine's own, tunnels, and lines to a single point.
std::vector<LocalLink> ReadLocalLinks();

// Fills in the hardware addresses that the system knows of its neighbours, where the devices have told none.
void AddHardwareAddresses(std::vector<DeviceFacts>& devices);

}  // namespace discovery
