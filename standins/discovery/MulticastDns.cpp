#include "standins/discovery/MulticastDns.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

namespace discovery {

namespace {

constexpr std::size_t mostServices = 4096;
constexpr std::size_t mostAddressesOfHost = 16;
constexpr int mostTriesForRecord = 6;
// Questions that fit into a packet of any link.
constexpr std::size_t questionsPerPacket = 8;

constexpr std::uint32_t multicastGroup = 0xE00000FB;
constexpr std::array<std::uint8_t, 16> multicastGroup6{0xFF, 0x02, 0, 0, 0, 0, 0, 0,
                                                       0,    0,    0, 0, 0, 0, 0, 0xFB};

constexpr std::string_view ippService = "_ipp._tcp.local";
constexpr std::string_view faxService = "_fax-ipp._tcp.local";
constexpr std::string_view scanService = "_uscan._tcp.local";
constexpr auto serviceTypes =
    std::to_array<std::string_view>({ippService, "_ipps._tcp.local", "_pdl-datastream._tcp.local",
                                     "_printer._tcp.local", faxService, scanService});

std::vector<DnsQuestion> BrowseQuestions() {
    std::vector<DnsQuestion> questions;
    questions.reserve(serviceTypes.size());
    for (const std::string_view type : serviceTypes) questions.push_back({DnsNameOf(type), DnsType::Ptr});
    return questions;
}

bool IsOfType(std::string_view instance, std::string_view type) {
    return instance.size() > type.size() + 1 && instance.ends_with(type) &&
           instance[instance.size() - type.size() - 1] == '.';
}

bool IsKnownType(std::string_view instance) {
    return std::ranges::any_of(serviceTypes, [&](std::string_view type) { return IsOfType(instance, type); });
}

std::string MissingKey(const std::string& name, DnsType type) {
    return std::to_string(static_cast<int>(type)) + " " + name;
}

// "T" and "F", as printers announce what they can; nothing for any other text.
std::optional<bool> Truth(const KeyedTexts& texts, std::string_view key) {
    const std::string value = FirstOf(texts, {key});
    if (value == "T" || value == "t") return true;
    if (value == "F" || value == "f") return false;
    return std::nullopt;
}

DeviceName AnnouncedName(const KeyedTexts& texts) {
    const std::string maker = FirstOf(texts, {"usb_mfg"});
    const std::string model = FirstOf(texts, {"usb_mdl", "ty", "product"});
    return NameOf(model, maker, Witness::Announcement);
}

IppPlace PlaceOf(std::uint16_t port, const KeyedTexts& texts) {
    // The path stands without the slash at its beginning.
    const std::string path = FirstOf(texts, {"rp"});
    return {.port = port, .path = path.starts_with('/') ? path : "/" + path};
}

}  // namespace

void MulticastDns::AskEverywhere(const std::vector<DnsQuestion>& questions,
                                 std::vector<Datagram>& out) const {
    const Bytes packet = EncodeDnsQuery(id, questions);
    for (std::size_t link = 0; link < zones.size(); ++link) {
        for (const NetworkAddress& group :
             {NetworkAddress(multicastGroup), NetworkAddress(multicastGroup6)}) {
            out.push_back({.peer = group, .port = multicastDnsPort, .link = link, .bytes = packet});
        }
    }
}

void MulticastDns::Browse(std::vector<Datagram>& out) const {
    AskEverywhere(BrowseQuestions(), out);
}

void MulticastDns::BrowseHost(const NetworkAddress& host, std::vector<Datagram>& out) const {
    out.push_back({.peer = host, .port = multicastDnsPort, .bytes = EncodeDnsQuery(id, BrowseQuestions())});
}

void MulticastDns::Resolve(const std::string& localName, std::vector<Datagram>& out) const {
    const DnsName name = DnsNameOf(localName);
    AskEverywhere({{name, DnsType::A}, {name, DnsType::Aaaa}}, out);
}

void MulticastDns::AskForMissing(std::vector<Datagram>& out) {
    std::vector<DnsQuestion> questions;
    std::erase_if(missing, [](const auto& entry) { return entry.second.tries == mostTriesForRecord; });
    for (auto& [key, record] : missing) {
        ++record.tries;
        questions.push_back({record.name, record.type});
        if (questions.size() == questionsPerPacket) AskEverywhere(std::exchange(questions, {}), out);
    }
    if (!questions.empty()) AskEverywhere(questions, out);
}

bool MulticastDns::Receive(const Datagram& answer) {
    if (answer.port != multicastDnsPort) return false;
    const std::optional<DnsResponse> response = DecodeDnsResponse(answer.bytes);
    if (!response || response->id != id) return false;
    bool isNews = false;
    for (const DnsRecord& record : response->records) isNews = TakeRecord(record, answer) || isNews;
    return isNews;
}

bool MulticastDns::TakeRecord(const DnsRecord& record, const Datagram& answer) {
    switch (record.type) {
        case DnsType::Ptr:
            return TakePointer(record);
        case DnsType::Srv:
            return TakeService(record);
        case DnsType::Txt:
            return TakeTexts(record);
        case DnsType::A:
        case DnsType::Aaaa:
            return TakeAddress(record, answer);
    }
    return false;
}

bool MulticastDns::TakePointer(const DnsRecord& record) {
    const DnsName& name = std::get<DnsName>(record.data);
    const std::string instance = KeyOf(name);
    if (!IsKnownType(instance) || services.size() == mostServices || !services.try_emplace(instance).second) {
        return false;
    }
    instances.push_back(instance);
    Miss(name, DnsType::Srv);
    Miss(name, DnsType::Txt);
    return true;
}

bool MulticastDns::TakeService(const DnsRecord& record) {
    const std::string instance = KeyOf(record.name);
    const auto found = services.find(instance);
    if (found == services.end() || !found->second.host.empty()) return false;
    const auto& target = std::get<DnsService>(record.data);
    found->second.host = KeyOf(target.host);
    found->second.port = target.port;
    Obtain(instance, DnsType::Srv);
    const std::vector<NetworkAddress> known = AddressesOfHost(found->second.host);
    if (known.empty()) Miss(target.host, DnsType::Aaaa);
    if (std::ranges::all_of(known, &NetworkAddress::IsIpV6)) Miss(target.host, DnsType::A);
    return true;
}

bool MulticastDns::TakeTexts(const DnsRecord& record) {
    const std::string instance = KeyOf(record.name);
    const auto found = services.find(instance);
    if (found == services.end() || found->second.hasTexts) return false;
    found->second.texts = ReadTxtRecord(std::get<DnsTexts>(record.data).strings);
    found->second.hasTexts = true;
    Obtain(instance, DnsType::Txt);
    return true;
}

bool MulticastDns::TakeAddress(const DnsRecord& record, const Datagram& answer) {
    const std::uint32_t zone = answer.link < zones.size() ? zones[answer.link] : 0;
    const auto address = NetworkAddress::FromBytes(std::get<Bytes>(record.data), zone);
    if (!address || !address->IsHost() || hosts.size() >= mostServices) return false;
    const std::string host = KeyOf(record.name);
    std::vector<NetworkAddress>& known = hosts[host];
    // An address of IPv4 is enough; one of IPv6 alone does not tell that the device is the one that SNMP
    // knows.
    if (!address->IsIpV6()) Obtain(host, DnsType::A);
    Obtain(host, DnsType::Aaaa);
    if (known.size() == mostAddressesOfHost || std::ranges::find(known, *address) != known.end())
        return false;
    known.push_back(*address);
    newAddresses.push_back(*address);
    return true;
}

void MulticastDns::Miss(const DnsName& name, DnsType type) {
    missing.try_emplace(MissingKey(KeyOf(name), type), Missing{.name = name, .type = type});
}

void MulticastDns::Obtain(const std::string& key, DnsType type) {
    missing.erase(MissingKey(key, type));
}

std::vector<NetworkAddress> MulticastDns::AddressesOf(const std::string& localName) const {
    return AddressesOfHost(KeyOf(DnsNameOf(localName)));
}

std::vector<NetworkAddress> MulticastDns::AddressesOfHost(const std::string& key) const {
    const auto found = hosts.find(key);
    return found == hosts.end() ? std::vector<NetworkAddress>() : found->second;
}

std::vector<NetworkAddress> MulticastDns::TakeNewAddresses() {
    return std::exchange(newAddresses, {});
}

void MulticastDns::Collect(FoundDevices& devices) const {
    for (const std::string& instance : instances) devices.Add(FactsOf(instance, services.at(instance)));
}

DeviceFacts MulticastDns::FactsOf(const std::string& instance, const Service& service) const {
    DeviceFacts facts;
    const auto host = hosts.find(service.host);
    if (host != hosts.end()) facts.addresses = host->second;
    facts.localName = service.host;
    facts.uuid = FirstOf(service.texts, {"uuid"});
    facts.name = AnnouncedName(service.texts);
    facts.isColour = Truth(service.texts, "color");
    facts.hasFax = Truth(service.texts, "fax");
    facts.canScan = Truth(service.texts, "scan");
    if (IsOfType(instance, faxService)) facts.hasFax = true;
    if (IsOfType(instance, scanService)) facts.canScan = true;
    if (IsOfType(instance, ippService)) facts.ipp = PlaceOf(service.port, service.texts);
    // What scans alone is no printer.
    facts.isPrinter = !IsOfType(instance, scanService);
    return facts;
}

}  // namespace discovery
