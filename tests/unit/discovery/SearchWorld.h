// Searches in a simulated network.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "standins/discovery/Documents.h"
#include "standins/discovery/Search.h"
#include "tests/unit/discovery/SimulatedNetwork.h"

inline std::vector<std::string> AddressesOf(const std::vector<discovery::DeviceFacts>& devices) {
    std::vector<std::string> texts;
    for (const discovery::DeviceFacts& device : devices)
        texts.push_back(discovery::MainAddress(device).ToText());
    return texts;
}

// Answers from that number on; the answers before it are lost.
inline std::function<std::vector<discovery::Datagram>(const discovery::Datagram&)> FromAnswer(int number) {
    return [number, count = 0](const discovery::Datagram& answer) mutable {
        return ++count < number ? std::vector<discovery::Datagram>{} : std::vector{answer};
    };
}

class SearchWorld : public testing::Test {
protected:
    std::vector<discovery::DeviceFacts> SearchNeighbours() {
        discovery::Search search(SimulatedNetwork::NeighbourPlan());
        return network.Run(search);
    }
    static discovery::SearchPlan PlanWithoutSweep() {
        discovery::SearchPlan plan = SimulatedNetwork::NeighbourPlan();
        plan.sweeps.clear();
        return plan;
    }
    std::vector<discovery::DeviceFacts> SearchWithoutSweep() {
        discovery::Search search(PlanWithoutSweep());
        return network.Run(search);
    }
    std::vector<discovery::DeviceFacts> AskHost(const std::string& address) {
        discovery::SearchPlan plan;
        plan.secret = 77;
        plan.hosts = {
            {.address =
                 discovery::NetworkAddress::FromText(std::wstring(address.begin(), address.end())).value(),
             .ipp = {}}};
        discovery::Search search(plan);
        return network.Run(search);
    }
    static discovery::Bytes IppPrinter() {
        return wire::IppAnswer(wire::IppAttribute(0x41, "printer-make-and-model", "Norrlund Fjell 40c") +
                               wire::IppAttribute(0x41, "printer-device-id", "MFG:Norrlund;MDL:Fjell 40c;") +
                               wire::IppAttribute(0x22, "color-supported", "\1") +
                               wire::IppAttribute(0x44, "ipp-features-supported", "faxout"));
    }
    // Three kinds of devices, so many of each.
    void AddOffice(int ofEach) {
        for (int number = 0; number < 3 * ofEach; ++number) {
            const bool isSnmp = number >= ofEach;
            const bool isAnnounced = number < ofEach || number >= 2 * ofEach;
            network.Add({.address = "192.0.2." + std::to_string(number + 10),
                         .host = "printer" + std::to_string(number),
                         .answersSnmp = isSnmp,
                         .announcesItself = isAnnounced,
                         .hardwareAddress = {'\2', 0, 0, 0, 0, static_cast<char>(number)},
                         .delay = discovery::Time(2 + number % 7)});
        }
    }

    SimulatedNetwork network;
};
