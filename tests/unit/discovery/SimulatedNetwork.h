// A network in memory, with a clock of its own, in which a search finds what tests put there.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "standins/discovery/Search.h"
#include "tests/unit/discovery/WirePackets.h"

// What a simulated device says of itself. What is empty it does not know.
struct SimulatedDevice {
    std::string address;
    // The name in multicast DNS, without "local".
    std::string host;
    bool answersSnmp = false;
    bool announcesItself = false;
    bool knowsVersion2c = true;
    // An IPP answer, by the path of the printer.
    std::map<std::string, discovery::Bytes> ipp;
    std::string maker = "Halvenny";
    std::string model = "Loom 310";
    std::string hardwareAddress;
    std::string uuid;
    std::vector<std::string> colorants{"black"};
    // Further strings of the TXT record.
    std::vector<std::string> texts;
    // One of each of its interfaces.
    std::vector<std::string> deviceIds;
    bool hasModem = false;
    // How long it takes to answer.
    discovery::Time delay{3};
    // Changes an answer before it is sent, or adds others; the datagrams are those to be delivered instead.
    std::function<std::vector<discovery::Datagram>(const discovery::Datagram&)> lie;
};

class SimulatedNetwork {
public:
    void Add(const SimulatedDevice& device);
    // Loses that share of the packets of both ways, others with each seed.
    void Lose(double share, std::uint32_t seed) {
        loss = share;
        random.seed(seed);
    }

    // Carries the search out and returns what it found. The clock is at the end of the search afterwards.
    std::vector<discovery::DeviceFacts> Run(discovery::Search& search);
    // A search of the neighbours of 192.0.2.0/24 as the library makes it.
    static discovery::SearchPlan NeighbourPlan();

    discovery::Time now{};
    std::size_t packetsSent = 0;
    // The most packets sent in one of the seconds.
    std::size_t mostPerSecond() const;
    // What was sent to each address.
    std::map<discovery::NetworkAddress, std::size_t> sentTo;
    // When each connection was opened, as "address:port".
    std::vector<std::string> connections;

private:
    void Take(const discovery::Datagram& sent);
    void Answer(const SimulatedDevice& device, const discovery::Datagram& sent);
    discovery::Bytes SnmpAnswerOf(const SimulatedDevice& device, const discovery::Bytes& question) const;
    discovery::Bytes DnsAnswerOf(const SimulatedDevice& device, const discovery::Bytes& question) const;
    void Serve(discovery::Search& search, const discovery::StreamQuestion& question);
    bool IsLost();
    bool IsHeld(const discovery::Datagram& sent);

    std::map<discovery::NetworkAddress, SimulatedDevice> devices;
    std::multimap<discovery::Time, discovery::Datagram> underWay;
    std::map<std::int64_t, std::size_t> sentPerSecond;
    // Packets that wait for neighbours, by the socket that holds them; nothing is given up during a search.
    std::map<std::size_t, std::size_t> waiting;
    double loss = 0;
    std::mt19937 random;
};
