// One search for printers, from its first question to the answers that have dried up.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "standins/discovery/IppPoll.h"
#include "standins/discovery/MulticastDns.h"
#include "standins/discovery/SnmpPoll.h"

namespace discovery {

// A network that this machine is in.
struct Link {
    // The number of its interface in link-local addresses of IPv6.
    std::uint32_t zone = 0;
    std::vector<Subnet> subnets;
};

// A host to be asked by itself, and where it speaks IPP, if that is known.
struct AskedHost {
    NetworkAddress address;
    std::optional<IppPlace> ipp;
};

struct SearchPlan {
    std::vector<Link> links;
    // Ask all who are in reach of the links for their services, and by broadcasts of their subnets.
    bool asksNeighbours = false;
    // Ask each address of these subnets.
    std::vector<Subnet> sweeps;
    // Ask these hosts by SNMP, those who stay silent or do not tell their colour by IPP; the devices that are
    // found are those of these addresses.
    std::vector<AskedHost> hosts;
    // The name of a host to be found by multicast DNS and then asked, or empty.
    std::string localName;
    // By then the search is over, whatever is still to come.
    Time limit{5000};
    Bytes community = "public";
    // Not to be guessed from outside.
    std::uint32_t secret = 0;
};

// The search talks to nobody itself: what is to be sent is taken from it, what comes in is handed to it, and
// it is told the time. It repeats its questions as long as that brings somebody new, twice at least, sends no
// more than 1,000 packets in a second, and keeps only what was asked for. Not for several threads at once.
class Search {
public:
    explicit Search(SearchPlan searchPlan);

    // What is to be sent and opened by now; at no time too much for a network.
    std::vector<Datagram> TakeDatagrams(Time now);
    std::vector<StreamQuestion> TakeStreams();
    // When there is something to do again if nothing comes in.
    Time NextDue(Time now) const;

    void Receive(const Datagram& answer, Time now);
    // Returns false where the connection is no longer wanted.
    bool ReceiveStream(std::size_t number, BytesView bytes, Time now);
    void CloseStream(std::size_t number, Time now);

    bool IsOver(Time now) const;
    // What has been found so far.
    FoundDevices Devices() const;
    // The printers among them that were looked for.
    std::vector<DeviceFacts> Printers() const;

private:
    void BeginPass(Time now);
    void AskAll(std::vector<Datagram>& out);
    void Sweep(Time now, std::vector<Datagram>& out);
    bool IsSweeping() const { return sweptSubnets < plan.sweeps.size(); }
    // How many packets may still be sent by now.
    std::size_t Allowance(Time now) const;
    bool NeedsAnotherPass() const;
    Time NextPass() const;
    Time DriedUp() const;
    bool HasNobodyToAsk() const;
    bool HaveHostsAnswered() const;
    bool IsTalking(Time now) const;
    void AskNewNeighbours(std::vector<Datagram>& out);
    void AskByIpp(Time now);
    void TakeNews(Time now);
    bool IsInReach(const Datagram& answer) const;

    SearchPlan plan;
    MulticastDns multicastDns;
    SnmpPoll snmp;
    IppPoll ipp;
    // The pass under way, from 0 on; -1 before the first.
    int pass = -1;
    Time passBegan{};
    Time lastSent{};
    Time lastNews{};
    // When the hosts were asked by IPP.
    std::optional<Time> ippAsked;
    // The longest that an answer came after the last packet had gone.
    Time slowestAnswer{};
    bool hasFound = false;
    // Somebody was found by a repeated question alone.
    bool losesPackets = false;
    int passesWithoutNews = 0;
    std::size_t packets = 0;
    // Subnets of this pass that are done, and hosts of the next one.
    std::size_t sweptSubnets = 0;
    std::uint32_t sweptHosts = 0;
    // Addresses that multicast DNS found, to be asked by SNMP.
    std::vector<NetworkAddress> neighbours;
};

}  // namespace discovery
