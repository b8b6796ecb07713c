#include "standins/discovery/Search.h"

#include <algorithm>
#include <array>
#include <utility>

namespace discovery {

namespace {

constexpr std::size_t packetsPerSecond = 1000;
// What may go out at once, so that a search of a few hosts does not wait for its share.
constexpr std::size_t burst = 64;
constexpr Time sweepInterval{5};
constexpr std::size_t mostNeighbours = 4096;

constexpr int mostPasses = 8;
// As long as nobody answers, those that sleep get the time to wake up.
constexpr int passesIntoSilence = 4;
// So many passes in a row bring nobody new to the end. Where a second pass finds whom the first did not,
// packets get lost, and one pass without news is no evidence.
constexpr int quietPasses = 1;
constexpr int quietPassesUnderLoss = 2;
constexpr auto passGaps = std::to_array<Time>({Time(250), Time(500)});

// How long nothing new must come; longer where answers are slow.
constexpr Time shortestQuiet{450};
constexpr Time longestQuiet{1500};
// A host that was asked for by itself has nobody beside it to wait for.
constexpr Time quietOfHosts{100};

constexpr Time snmpPatience{600};
constexpr Time ippPatience{2000};

SnmpVersion VersionOf(int pass) {
    return pass % 2 == 0 ? SnmpVersion::V2c : SnmpVersion::V1;
}

std::vector<std::uint32_t> ZonesOf(const std::vector<Link>& links) {
    std::vector<std::uint32_t> zones;
    zones.reserve(links.size());
    for (const Link& link : links) zones.push_back(link.zone);
    return zones;
}

}  // namespace

Search::Search(SearchPlan searchPlan)
    : plan(std::move(searchPlan)),
      multicastDns(static_cast<std::uint16_t>(plan.secret), ZonesOf(plan.links)),
      snmp(plan.community, plan.secret) {
    if (!plan.asksNeighbours) return;
    for (const Link& link : plan.links) {
        for (const Subnet& subnet : link.subnets) snmp.ExpectBroadcast(subnet);
    }
}

std::vector<Datagram> Search::TakeDatagrams(Time now) {
    std::vector<Datagram> out;
    if (pass < 0 || (NeedsAnotherPass() && now >= NextPass())) {
        BeginPass(now);
        AskAll(out);
    }
    AskNewNeighbours(out);
    snmp.TakeDue(now, out);
    packets += out.size();
    Sweep(now, out);
    if (!out.empty()) lastSent = now;
    AskByIpp(now);
    return out;
}

std::vector<StreamQuestion> Search::TakeStreams() {
    std::vector<StreamQuestion> out;
    ipp.TakeDue(out);
    return out;
}

void Search::BeginPass(Time now) {
    ++pass;
    ++passesWithoutNews;
    passBegan = now;
    sweptSubnets = 0;
    sweptHosts = 0;
}

void Search::AskAll(std::vector<Datagram>& out) {
    const SnmpVersion version = VersionOf(pass);
    if (plan.asksNeighbours) {
        multicastDns.Browse(out);
        multicastDns.AskForMissing(out);
        for (std::size_t link = 0; link < plan.links.size(); ++link) {
            for (const Subnet& subnet : plan.links[link].subnets) {
                out.push_back(snmp.FirstQuestion(subnet.Broadcast(), version, link));
            }
        }
    }
    if (!plan.localName.empty() && plan.hosts.empty()) multicastDns.Resolve(plan.localName, out);
    for (const AskedHost& host : plan.hosts) {
        if (snmp.HasAnswered(host.address)) continue;
        out.push_back(snmp.FirstQuestion(host.address, version));
        multicastDns.BrowseHost(host.address, out);
    }
    for (const NetworkAddress& neighbour : neighbours) {
        if (!snmp.HasAnswered(neighbour)) out.push_back(snmp.FirstQuestion(neighbour, version));
    }
}

void Search::AskNewNeighbours(std::vector<Datagram>& out) {
    if (!plan.localName.empty() && plan.hosts.empty()) {
        for (const NetworkAddress& address : multicastDns.AddressesOf(plan.localName)) {
            plan.hosts.push_back({.address = address, .ipp = {}});
            out.push_back(snmp.FirstQuestion(address, SnmpVersion::V2c));
            multicastDns.BrowseHost(address, out);
        }
    }
    for (const NetworkAddress& address : multicastDns.TakeNewAddresses()) {
        const bool isSwept =
            std::ranges::any_of(plan.sweeps, [&](const Subnet& each) { return each.Contains(address); });
        if (!plan.asksNeighbours || isSwept || neighbours.size() == mostNeighbours) continue;
        neighbours.push_back(address);
        out.push_back(snmp.FirstQuestion(address, SnmpVersion::V2c));
    }
}

std::size_t Search::Allowance(Time now) const {
    const std::size_t allowed = burst + static_cast<std::size_t>(now.count()) * packetsPerSecond / 1000;
    return allowed > packets ? allowed - packets : 0;
}

void Search::Sweep(Time now, std::vector<Datagram>& out) {
    for (std::size_t left = Allowance(now); left > 0 && IsSweeping();) {
        const Subnet& subnet = plan.sweeps[sweptSubnets];
        if (sweptHosts == subnet.HostCount()) {
            ++sweptSubnets;
            sweptHosts = 0;
            continue;
        }
        const NetworkAddress host = subnet.Host(sweptHosts++);
        if (snmp.HasAnswered(host)) continue;
        out.push_back(snmp.FirstQuestion(host, VersionOf(pass), sweepLink));
        ++packets;
        --left;
    }
}

// Hosts that stay silent in SNMP, and those whose colour is still to be learned.
void Search::AskByIpp(Time now) {
    const bool haveAllAnswered = std::ranges::all_of(
        plan.hosts, [&](const AskedHost& host) { return snmp.HasAnswered(host.address); });
    const bool isTime = now >= snmpPatience || (haveAllAnswered && snmp.IsIdle());
    if (plan.hosts.empty() || ippAsked || !isTime) return;
    ippAsked = now;
    const FoundDevices devices = Devices();
    for (const AskedHost& host : plan.hosts) {
        const DeviceFacts* const facts = devices.Find(host.address);
        if (facts != nullptr && facts->isColour) continue;
        ipp.Ask(host.address, host.ipp || facts == nullptr ? host.ipp : facts->ipp);
    }
}

bool Search::NeedsAnotherPass() const {
    if (IsSweeping() || pass + 1 >= mostPasses) return false;
    if (HaveHostsAnswered()) return false;
    if (!hasFound && pass + 1 < passesIntoSilence) return true;
    return passesWithoutNews < (losesPackets ? quietPassesUnderLoss : quietPasses);
}

Time Search::NextPass() const {
    return passBegan + passGaps[std::min(static_cast<std::size_t>(pass), passGaps.size() - 1)];
}

bool Search::HasNobodyToAsk() const {
    return !plan.asksNeighbours && plan.sweeps.empty() && plan.hosts.empty() && plan.localName.empty();
}

// Nobody but these hosts was asked, and each has said something.
bool Search::HaveHostsAnswered() const {
    const bool asksOthers = plan.asksNeighbours || !plan.sweeps.empty() || plan.hosts.empty();
    if (asksOthers || !ippAsked || !ipp.IsIdle()) return false;
    return std::ranges::all_of(plan.hosts, [&](const AskedHost& host) {
        return snmp.HasAnswered(host.address) || ipp.HasAnswered(host.address);
    });
}

Time Search::DriedUp() const {
    const Time quiet =
        HaveHostsAnswered() ? quietOfHosts : std::clamp(3 * slowestAnswer, shortestQuiet, longestQuiet);
    return std::max(lastSent, lastNews) + quiet;
}

bool Search::IsTalking(Time now) const {
    if (ippAsked && !ipp.IsIdle() && now < *ippAsked + ippPatience) return true;
    if (!plan.hosts.empty() && !ippAsked) return true;
    return !snmp.IsIdle();
}

bool Search::IsOver(Time now) const {
    if (now >= plan.limit || HasNobodyToAsk()) return true;
    return pass >= 0 && !IsSweeping() && !NeedsAnotherPass() && !IsTalking(now) && now >= DriedUp();
}

Time Search::NextDue(Time now) const {
    if (IsSweeping()) return now + sweepInterval;
    Time next = plan.limit;
    if (NeedsAnotherPass()) next = std::min(next, NextPass());
    if (const auto due = snmp.NextDue()) next = std::min(next, *due);
    if (!plan.hosts.empty() && !ippAsked) next = std::min(next, snmpPatience);
    if (ippAsked && !ipp.IsIdle()) next = std::min(next, *ippAsked + ippPatience);
    if (DriedUp() > now) next = std::min(next, DriedUp());
    return std::max(next, now + Time(1));
}

void Search::Receive(const Datagram& answer, Time now) {
    const bool isNews = answer.port == multicastDnsPort ? IsInReach(answer) && multicastDns.Receive(answer)
                                                        : snmp.Receive(answer);
    if (isNews) TakeNews(now);
}

bool Search::ReceiveStream(std::size_t number, BytesView bytes, Time now) {
    if (ipp.Receive(number, bytes)) TakeNews(now);
    return ipp.IsOpen(number);
}

void Search::CloseStream(std::size_t number, Time now) {
    if (ipp.Close(number)) TakeNews(now);
}

void Search::TakeNews(Time now) {
    slowestAnswer = std::max(slowestAnswer, now - lastSent);
    lastNews = now;
    losesPackets = losesPackets || pass > 0;
    hasFound = true;
    passesWithoutNews = 0;
}

// Multicast DNS is spoken with neighbours only, and with hosts that are asked by themselves.
bool Search::IsInReach(const Datagram& answer) const {
    const bool isAsked = std::ranges::find(plan.hosts, answer.peer, &AskedHost::address) != plan.hosts.end();
    if (isAsked || answer.link >= plan.links.size()) return isAsked;
    const auto holds = [&](const Subnet& subnet) { return subnet.Contains(answer.peer); };
    return answer.peer.IsIpV6() || answer.peer.IsLinkLocal() ||
           std::ranges::any_of(plan.links[answer.link].subnets, holds);
}

FoundDevices Search::Devices() const {
    FoundDevices devices;
    multicastDns.Collect(devices);
    snmp.Collect(devices);
    ipp.Collect(devices);
    return devices;
}

std::vector<DeviceFacts> Search::Printers() const {
    std::vector<DeviceFacts> printers = Devices().Printers();
    if (plan.asksNeighbours || plan.hosts.empty()) return printers;
    std::erase_if(printers, [&](const DeviceFacts& printer) {
        return std::ranges::none_of(plan.hosts, [&](const AskedHost& host) {
            return std::ranges::find(printer.addresses, host.address) != printer.addresses.end();
        });
    });
    return printers;
}

}  // namespace discovery
