// Finds printers by the services that they announce (RFC 6762, RFC 6763).
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "standins/discovery/DnsMessage.h"
#include "standins/discovery/FoundDevices.h"
#include "standins/discovery/Traffic.h"

namespace discovery {

// Questions go from a port of their own, so answers come to it alone and no other program's port is shared.
// An answer counts only with the id of the questions and from the port of multicast DNS; the caller passes
// those of the local network only. Services and hosts are bounded, and each missing record is asked for a few
// times at most.
class MulticastDns {
public:
    // Questions are sent on each of the links, by IPv4 and IPv6. A link goes with the number that its
    // interface has in link-local addresses of IPv6.
    MulticastDns(std::uint16_t queryId, std::vector<std::uint32_t> zonesOfLinks)
        : id(queryId), zones(std::move(zonesOfLinks)) {}

    // Asks all who are in reach for the services of printers and scanners.
    void Browse(std::vector<Datagram>& out) const;
    // Asks one host for them, wherever it is.
    void BrowseHost(const NetworkAddress& host, std::vector<Datagram>& out) const;
    // Asks who has that name, which ends in "local".
    void Resolve(const std::string& localName, std::vector<Datagram>& out) const;
    // Asks once more, for what is still missing of what was announced.
    void AskForMissing(std::vector<Datagram>& out);

    // Returns true if the answer told of a service or an address that was not known.
    bool Receive(const Datagram& answer);

    std::vector<NetworkAddress> AddressesOf(const std::string& localName) const;
    // The addresses that were learned since the last call.
    std::vector<NetworkAddress> TakeNewAddresses();
    // All that is known of the hosts that offer a service.
    void Collect(FoundDevices& devices) const;

private:
    struct Service {
        std::string host;
        std::uint16_t port = 0;
        KeyedTexts texts;
        bool hasTexts = false;
    };
    // A record that was announced and has not come, and how often it was asked for.
    struct Missing {
        DnsName name;
        DnsType type = DnsType::Txt;
        int tries = 0;
    };

    std::vector<NetworkAddress> AddressesOfHost(const std::string& key) const;
    void AskEverywhere(const std::vector<DnsQuestion>& questions, std::vector<Datagram>& out) const;
    bool TakeRecord(const DnsRecord& record, const Datagram& answer);
    bool TakePointer(const DnsRecord& record);
    bool TakeService(const DnsRecord& record);
    bool TakeTexts(const DnsRecord& record);
    bool TakeAddress(const DnsRecord& record, const Datagram& answer);
    void Miss(const DnsName& name, DnsType type);
    void Obtain(const std::string& key, DnsType type);
    DeviceFacts FactsOf(const std::string& instance, const Service& service) const;

    std::uint16_t id;
    std::vector<std::uint32_t> zones;
    // By the key of the instance's name ("loom 310._ipp._tcp.local"), in the order in which they were heard
    // of.
    std::unordered_map<std::string, Service> services;
    std::vector<std::string> instances;
    // By the key of the host's name.
    std::unordered_map<std::string, std::vector<NetworkAddress>> hosts;
    // By type and name.
    std::unordered_map<std::string, Missing> missing;
    std::vector<NetworkAddress> newAddresses;
};

}  // namespace discovery
