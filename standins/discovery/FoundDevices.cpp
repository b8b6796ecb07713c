#include "standins/discovery/FoundDevices.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace discovery {

namespace {

constexpr std::size_t mostDevices = 10000;

const NetworkAddress* IpV4Of(const DeviceFacts& facts) {
    const auto found =
        std::ranges::find_if(facts.addresses, [](const NetworkAddress& each) { return !each.IsIpV6(); });
    return found == facts.addresses.end() ? nullptr : &*found;
}

// By design: two that have each an IPv4 address or a name of their own stay two, whatever ids they share.
// Devices are sold with the same id more often than they have two addresses.
bool CanBeOne(const DeviceFacts& left, const DeviceFacts& right) {
    const NetworkAddress* const leftAddress = IpV4Of(left);
    const NetworkAddress* const rightAddress = IpV4Of(right);
    if (leftAddress != nullptr && rightAddress != nullptr && *leftAddress != *rightAddress) return false;
    return left.localName.empty() || right.localName.empty() || left.localName == right.localName;
}

std::vector<std::string> IdentitiesOf(const DeviceFacts& facts) {
    std::vector<std::string> identities;
    if (!facts.hardwareAddress.empty()) identities.push_back("mac " + facts.hardwareAddress);
    if (!facts.uuid.empty()) identities.push_back("uuid " + facts.uuid);
    return identities;
}

}  // namespace

void FoundDevices::Add(const DeviceFacts& facts) {
    if (facts.addresses.empty()) return;
    const std::size_t place = PlaceOf(facts);
    if (place == devices.size()) {
        if (devices.size() == mostDevices) return;
        devices.emplace_back();
    }
    Complete(devices[place], facts);
    Index(place);
}

// The place of the device that the facts belong to, or the next free one.
std::size_t FoundDevices::PlaceOf(const DeviceFacts& facts) {
    for (const NetworkAddress& address : facts.addresses) {
        const auto found = byAddress.find(address);
        if (found != byAddress.end()) return found->second;
    }
    for (const std::string& identity : IdentitiesOf(facts)) {
        const auto found = byIdentity.find(identity);
        if (found != byIdentity.end() && CanBeOne(devices[found->second], facts)) return found->second;
    }
    return devices.size();
}

// Enters all by which the device is known. A device that already has one of them is the same.
void FoundDevices::Index(std::size_t place) {
    const std::vector<NetworkAddress> addresses = devices[place].addresses;
    for (const NetworkAddress& address : addresses) {
        const std::size_t holder = byAddress.try_emplace(address, place).first->second;
        if (holder != place) Absorb(place, holder);
    }
    for (const std::string& identity : IdentitiesOf(devices[place])) {
        const std::size_t holder = byIdentity.try_emplace(identity, place).first->second;
        if (holder != place && CanBeOne(devices[place], devices[holder])) Absorb(place, holder);
    }
}

void FoundDevices::Absorb(std::size_t place, std::size_t other) {
    const DeviceFacts absorbed = std::exchange(devices[other], {});
    Complete(devices[place], absorbed);
    for (const NetworkAddress& address : absorbed.addresses) byAddress[address] = place;
    for (const std::string& identity : IdentitiesOf(absorbed)) byIdentity[identity] = place;
}

std::vector<DeviceFacts> FoundDevices::Printers() const {
    std::vector<DeviceFacts> printers;
    std::ranges::copy_if(devices, std::back_inserter(printers), [](const DeviceFacts& device) {
        return device.isPrinter && !device.addresses.empty();
    });
    return printers;
}

const DeviceFacts* FoundDevices::Find(const NetworkAddress& address) const {
    const auto found = byAddress.find(address);
    return found == byAddress.end() ? nullptr : &devices[found->second];
}

}  // namespace discovery
