// The devices of a search, each once however many ways it answered in.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "standins/discovery/DeviceFacts.h"

namespace discovery {

// What adds to a device is found by an address, the hardware address or the unique id that both know. Adding
// takes constant time but for the merging of devices that turn out to be one.
class FoundDevices {
public:
    // Facts without an address or beyond the most devices that are kept are dropped.
    void Add(const DeviceFacts& facts);
    // The devices in the order in which each was first heard of.
    std::vector<DeviceFacts> Printers() const;
    // The device of that address, or null; valid until the next one is added.
    const DeviceFacts* Find(const NetworkAddress& address) const;

private:
    std::size_t PlaceOf(const DeviceFacts& facts);
    void Index(std::size_t place);
    void Absorb(std::size_t place, std::size_t other);

    // One that was merged into another has no addresses.
    std::vector<DeviceFacts> devices;
    std::unordered_map<NetworkAddress, std::size_t> byAddress;
    // By hardware address and by unique id.
    std::unordered_map<std::string, std::size_t> byIdentity;
};

}  // namespace discovery
