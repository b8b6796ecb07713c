// The answer of a device to the question whether it has a fax, as a packet of the Network Printing Alliance
// protocol.
#pragma once

#include <cstdint>
#include <vector>

namespace discovery {

// A packet of one tree: root 1, in it the groups 1, 3 and 17, in the innermost the number 3, which is 1 for a
// device that has a fax and 0 for one that has none. Fields are as wide as the texts before the tree
// announce.
std::vector<std::uint8_t> MakeFaxPacket(bool hasFax);

}  // namespace discovery
