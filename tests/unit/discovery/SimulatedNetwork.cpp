#include "tests/unit/discovery/SimulatedNetwork.h"

#include <algorithm>

using discovery::Bytes;
using discovery::Datagram;
using discovery::DeviceFacts;
using discovery::DnsName;
using discovery::NetworkAddress;
using discovery::Oid;
using discovery::Search;
using discovery::SearchPlan;
using discovery::Subnet;
using discovery::Time;

namespace {

NetworkAddress AddressFrom(const std::string& text) {
    return NetworkAddress::FromText(std::wstring(text.begin(), text.end())).value();
}

const Oid deviceType{1, 3, 6, 1, 2, 1, 25, 3, 2, 1, 2};
const Oid deviceDescription{1, 3, 6, 1, 2, 1, 25, 3, 2, 1, 3};
const Oid deviceId{1, 3, 6, 1, 4, 1, 2699, 1, 2, 1, 2, 1, 1, 3};
const Oid hardwareAddress{1, 3, 6, 1, 2, 1, 2, 2, 1, 6};
const Oid colorant{1, 3, 6, 1, 2, 1, 43, 12, 1, 1, 4};
const Oid printerType{1, 3, 6, 1, 2, 1, 25, 3, 1, 5};
const Oid modemType{1, 3, 6, 1, 2, 1, 25, 3, 1, 14};

Oid Row(Oid column, std::initializer_list<std::uint32_t> row) {
    column.insert(column.end(), row);
    return column;
}

// Everything that a device holds, by name.
std::map<Oid, Bytes> BaseOf(const SimulatedDevice& device) {
    std::map<Oid, Bytes> base;
    base[Row(deviceType, {1})] = wire::OidValue(printerType);
    base[Row(deviceDescription, {1})] = wire::OctetValue(device.maker + " " + device.model);
    if (device.hasModem) base[Row(deviceType, {2})] = wire::OidValue(modemType);
    for (std::uint32_t row = 0; row < device.deviceIds.size(); ++row)
        base[Row(deviceId, {row + 1})] = wire::OctetValue(device.deviceIds[row]);
    base[Row(hardwareAddress, {1})] = wire::OctetValue("");
    if (!device.hardwareAddress.empty())
        base[Row(hardwareAddress, {2})] = wire::OctetValue(device.hardwareAddress);
    std::uint32_t number = 0;
    for (const std::string& each : device.colorants)
        base[Row(colorant, {1, ++number})] = wire::OctetValue(each);
    return base;
}

const DnsName ippType{"_ipp", "_tcp", "local"};

}  // namespace

void SimulatedNetwork::Add(const SimulatedDevice& device) {
    NetworkAddress own = AddressFrom(device.address);
    // The search sees a link-local address with the number of its link.
    if (own.IsLinkLocal()) own = NetworkAddress(own.Octets(), 2);
    devices.emplace(own, device);
}

SearchPlan SimulatedNetwork::NeighbourPlan() {
    const Subnet subnet(NetworkAddress(0xC0000201), 24);
    SearchPlan plan;
    plan.links = {{.zone = 2, .subnets = {subnet}}};
    plan.asksNeighbours = true;
    plan.sweeps = {subnet};
    plan.secret = 0x1234567;
    return plan;
}

std::size_t SimulatedNetwork::mostPerSecond() const {
    std::size_t most = 0;
    for (const auto& [second, count] : sentPerSecond) most = std::max(most, count);
    return most;
}

std::vector<DeviceFacts> SimulatedNetwork::Run(Search& search) {
    while (!search.IsOver(now)) {
        for (const Datagram& datagram : search.TakeDatagrams(now)) Take(datagram);
        for (const auto& question : search.TakeStreams()) Serve(search, question);
        const Time next = search.NextDue(now);
        EXPECT_GT(next, now);
        const bool isDelivery = !underWay.empty() && underWay.begin()->first < next;
        now = isDelivery ? std::max(now, underWay.begin()->first) : next;
        while (!underWay.empty() && underWay.begin()->first <= now) {
            const Datagram answer = underWay.extract(underWay.begin()).mapped();
            search.Receive(answer, now);
        }
    }
    return search.Printers();
}

bool SimulatedNetwork::IsLost() {
    return std::uniform_real_distribution<double>(0, 1)(random) < loss;
}

// A packet to an address of the own network where nobody is waits for a neighbour and takes up room of its
// socket. Where there is no room left, nothing more leaves that socket.
bool SimulatedNetwork::IsHeld(const Datagram& sent) {
    constexpr std::size_t room = 200;
    static const Subnet own = NeighbourPlan().sweeps.front();
    if (waiting[sent.link] == room) return true;
    const bool isNeighbour = own.Contains(sent.peer) && sent.peer != own.Broadcast();
    if (isNeighbour && !devices.contains(sent.peer)) ++waiting[sent.link];
    return false;
}

void SimulatedNetwork::Take(const Datagram& sent) {
    ++packetsSent;
    ++sentPerSecond[now.count() / 1000];
    ++sentTo[sent.peer];
    if (IsHeld(sent)) return;
    static const NetworkAddress broadcast = AddressFrom("192.0.2.255");
    static const NetworkAddress group = AddressFrom("224.0.0.251");
    static const NetworkAddress group6 = AddressFrom("ff02::fb");
    const bool isToAll = sent.peer == broadcast || sent.peer == group || sent.peer == group6;
    for (const auto& [own, device] : devices) {
        if (isToAll && own.IsIpV6() == sent.peer.IsIpV6() && !IsLost()) Answer(device, sent);
    }
    const auto found = devices.find(sent.peer);
    if (found != devices.end() && !IsLost()) Answer(found->second, sent);
}

void SimulatedNetwork::Answer(const SimulatedDevice& device, const Datagram& sent) {
    const bool isSnmp = sent.port == discovery::snmpPort;
    if (isSnmp ? !device.answersSnmp : !device.announcesItself) return;
    Datagram answer{.peer = AddressFrom(device.address), .port = sent.port, .link = sent.link};
    answer.bytes = isSnmp ? SnmpAnswerOf(device, sent.bytes) : DnsAnswerOf(device, sent.bytes);
    if (answer.bytes.empty()) return;
    for (const Datagram& each : device.lie ? device.lie(answer) : std::vector{answer}) {
        if (!IsLost()) underWay.emplace(now + device.delay, each);
    }
}

Bytes SimulatedNetwork::SnmpAnswerOf(const SimulatedDevice& device, const Bytes& question) const {
    const discovery::SnmpMessage asked = wire::ReadSnmpQuestion(question);
    const bool isVersion1 = asked.version == discovery::SnmpVersion::V1;
    if (!isVersion1 && !device.knowsVersion2c) return {};
    const std::map<Oid, Bytes> base = BaseOf(device);
    wire::SnmpAnswer answer{.version = asked.version, .requestId = asked.requestId};
    for (const discovery::SnmpBinding& binding : asked.bindings) {
        const auto next = base.upper_bound(binding.name);
        const auto place = static_cast<std::int32_t>(answer.bindings.size()) + 1;
        if (next != base.end()) {
            answer.bindings.emplace_back(next->first, next->second);
        } else if (!isVersion1) {
            answer.bindings.emplace_back(binding.name, wire::EndOfView());
        } else {
            // Nothing is told where one name has nothing after it.
            constexpr std::int32_t noSuchName = 2;
            return wire::SnmpPacket({.version = asked.version,
                                     .requestId = asked.requestId,
                                     .errorStatus = noSuchName,
                                     .errorIndex = place,
                                     .bindings = {}});
        }
    }
    return wire::SnmpPacket(answer);
}

Bytes SimulatedNetwork::DnsAnswerOf(const SimulatedDevice& device, const Bytes& question) const {
    const DnsName host{device.host, "local"};
    const DnsName instance{device.maker + " " + device.model + " " + device.host, "_ipp", "_tcp", "local"};
    const NetworkAddress own = AddressFrom(device.address);
    const Bytes octets(own.Octets().begin(), own.Octets().end());
    const Bytes address = octets.substr(0, own.IsIpV6() ? 16 : 4);
    wire::DnsPacket packet(wire::DnsQueryId(question));
    bool isKnown = false;
    for (const discovery::DnsQuestion& asked : wire::DnsQuestions(question)) {
        if (asked.name == ippType) {
            std::vector<std::string> texts{"txtvers=1", "rp=ipp/print", "usb_MFG=" + device.maker,
                                           "usb_MDL=" + device.model};
            texts.insert(texts.end(), device.texts.begin(), device.texts.end());
            if (!device.uuid.empty()) texts.push_back("UUID=" + device.uuid);
            packet.Pointer(ippType, instance).Service(instance, host, 8631).Texts(instance, texts);
            packet.Address(host, address);
            isKnown = true;
        } else if (discovery::KeyOf(asked.name) == discovery::KeyOf(host)) {
            packet.Address(host, address);
            isKnown = true;
        }
    }
    return isKnown ? packet.Packet() : Bytes();
}

void SimulatedNetwork::Serve(Search& search, const discovery::StreamQuestion& question) {
    connections.push_back(question.peer.ToText() + ":" + std::to_string(question.port));
    const auto found = devices.find(question.peer);
    if (found != devices.end()) {
        const SimulatedDevice& device = found->second;
        for (const auto& [path, answer] : device.ipp) {
            if (!question.request.starts_with("POST " + path + " ")) continue;
            // The id of the request stands in the same place of the message as that of the answer.
            Bytes message = answer;
            const std::size_t start = question.request.find("\r\n\r\n") + 4;
            message.replace(4, 4, question.request.substr(start + 4, 4));
            const std::string length = std::to_string(message.size());
            search.ReceiveStream(question.number,
                                 "HTTP/1.1 200 OK\r\nContent-Length: " + length + "\r\n\r\n" + message, now);
            return;
        }
        if (!device.ipp.empty()) search.ReceiveStream(question.number, "HTTP/1.1 404 Not Found\r\n\r\n", now);
    }
    search.CloseStream(question.number, now);
}
