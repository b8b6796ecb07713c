#include "standins/discovery/NetworkAddress.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <iterator>

#include "CommonLib/AddressText.h"
#include "CommonLib/TextUtilities.h"

namespace discovery {

namespace {

constexpr std::size_t ipV4Size = 4;
constexpr std::size_t ipV6Size = 16;
constexpr std::size_t groupCount = 8;
constexpr int ipV4Bits = 32;
constexpr std::wstring_view literalEnd = L".ipv6-literal.net";

// The zone is the number after the "%"; a name of an interface counts as none.
std::uint32_t ZoneOf(std::wstring_view text) {
    const std::size_t percent = text.find(L'%');
    if (percent == std::wstring_view::npos) return 0;
    return static_cast<std::uint32_t>(std::max(LeadingInteger(text.substr(percent + 1)), 0));
}

// fe80--1s4.ipv6-literal.net as fe80::1%4.
std::wstring WithoutLiteral(std::wstring_view text) {
    if (text.size() <= literalEnd.size()) return std::wstring(text);
    const std::size_t length = text.size() - literalEnd.size();
    if (!EqualsIgnoringCase(text.substr(length), literalEnd)) return std::wstring(text);
    std::wstring plain(text.substr(0, length));
    std::ranges::replace(plain, L'-', L':');
    std::ranges::replace(plain, L's', L'%');
    return plain;
}

struct Run {
    std::size_t start = 0;
    std::size_t length = 0;
};

// The longest run of zeros of two groups or more, the first of equal ones.
Run LongestZeros(const std::array<std::uint16_t, groupCount>& groups) {
    Run longest;
    Run current;
    for (std::size_t place = 0; place < groupCount; ++place) {
        current = groups[place] != 0 ? Run{.start = place + 1} : Run{current.start, current.length + 1};
        if (current.length > longest.length) longest = current;
    }
    return longest.length < 2 ? Run{} : longest;
}

std::string Hexadecimal(std::uint16_t number) {
    std::array<char, ipV4Size> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16);
    return {digits.data(), result.ptr};
}

std::string IpV6Text(const std::array<std::uint8_t, ipV6Size>& octets) {
    std::array<std::uint16_t, groupCount> groups{};
    for (std::size_t place = 0; place < groupCount; ++place) {
        groups[place] = static_cast<std::uint16_t>(octets[2 * place] << 8 | octets[2 * place + 1]);
    }
    const Run zeros = LongestZeros(groups);
    std::string text;
    for (std::size_t place = 0; place < groupCount; ++place) {
        if (zeros.length > 0 && place == zeros.start) {
            text += "::";
            place += zeros.length - 1;
            continue;
        }
        if (!text.empty() && text.back() != ':') text += ':';
        text += Hexadecimal(groups[place]);
    }
    return text;
}

}  // namespace

NetworkAddress::NetworkAddress(std::uint32_t ipV4) {
    for (std::size_t place = 0; place < ipV4Size; ++place) {
        octets[place] = static_cast<std::uint8_t>(ipV4 >> (8 * (ipV4Size - 1 - place)));
    }
}

NetworkAddress::NetworkAddress(const std::array<std::uint8_t, 16>& ipV6, std::uint32_t zoneOfLink)
    : isIpV6(true), octets(ipV6) {
    if (IsLinkLocal()) zone = zoneOfLink;
}

std::optional<NetworkAddress> NetworkAddress::FromBytes(BytesView bytes, std::uint32_t zone) {
    std::array<std::uint8_t, ipV6Size> octets{};
    if (bytes.size() != ipV4Size && bytes.size() != ipV6Size) return std::nullopt;
    std::ranges::transform(bytes, octets.begin(), [](char byte) { return static_cast<std::uint8_t>(byte); });
    if (bytes.size() == ipV6Size) return NetworkAddress(octets, zone);
    NetworkAddress address;
    address.octets = octets;
    return address;
}

std::optional<NetworkAddress> NetworkAddress::FromText(std::wstring_view text) {
    const std::wstring plain = WithoutLiteral(text);
    const std::vector<std::uint8_t> bytes = AddressBytes(plain);
    return FromBytes(Bytes(bytes.begin(), bytes.end()), ZoneOf(plain));
}

bool NetworkAddress::IsLinkLocal() const {
    return isIpV6 ? octets[0] == 0xFE && (octets[1] & 0xC0) == 0x80 : octets[0] == 169 && octets[1] == 254;
}

bool NetworkAddress::IsHost() const {
    if (isIpV6) {
        const bool isSmall =
            std::all_of(octets.begin(), octets.end() - 1, [](std::uint8_t octet) { return octet == 0; });
        return octets[0] != 0xFF && !(isSmall && octets.back() <= 1);
    }
    constexpr std::uint8_t localMachine = 127;
    constexpr std::uint8_t firstMulticast = 224;
    return octets[0] != 0 && octets[0] != localMachine && octets[0] < firstMulticast;
}

std::uint32_t NetworkAddress::IpV4() const {
    std::uint32_t number = 0;
    for (std::size_t place = 0; place < ipV4Size; ++place) number = number << 8 | octets[place];
    return number;
}

std::string NetworkAddress::ToText() const {
    if (isIpV6) return IpV6Text(octets) + (zone != 0 ? "%" + std::to_string(zone) : std::string());
    std::string text = std::to_string(octets[0]);
    for (std::size_t place = 1; place < ipV4Size; ++place) text += "." + std::to_string(octets[place]);
    return text;
}

std::string NetworkAddress::ToHostText() const {
    std::string text = ToText();
    if (!isIpV6) return text;
    std::ranges::replace(text, ':', '-');
    std::ranges::replace(text, '%', 's');
    // A label begins and ends with a letter or digit.
    if (text.front() == '-') text.insert(0, 1, '0');
    if (text.back() == '-') text += '0';
    std::ranges::copy(literalEnd, std::back_inserter(text));
    return text;
}

Subnet::Subnet(NetworkAddress member, int prefixLength)
    : base(0), bits(std::clamp(prefixLength, 0, ipV4Bits)) {
    base = member.IpV4() & Mask();
}

std::optional<Subnet> Subnet::FromText(std::wstring_view text) {
    const std::size_t colon = text.find(L':');
    if (colon == std::wstring_view::npos) return std::nullopt;
    const auto member = NetworkAddress::FromText(text.substr(0, colon));
    const auto mask = NetworkAddress::FromText(text.substr(colon + 1));
    if (!member || !mask || member->IsIpV6() || mask->IsIpV6()) return std::nullopt;
    const int ones = std::countl_one(mask->IpV4());
    if (std::popcount(mask->IpV4()) != ones) return std::nullopt;
    return Subnet(*member, ones);
}

std::uint32_t Subnet::Mask() const {
    return bits == 0 ? 0 : ~std::uint32_t{0} << (ipV4Bits - bits);
}

bool Subnet::Contains(const NetworkAddress& address) const {
    return !address.IsIpV6() && (address.IpV4() & Mask()) == base;
}

NetworkAddress Subnet::Broadcast() const {
    return NetworkAddress(base | ~Mask());
}

std::uint32_t Subnet::HostCount() const {
    const std::uint32_t last = ~Mask();
    return last <= 1 ? last + 1 : last - 1;
}

NetworkAddress Subnet::Host(std::uint32_t index) const {
    const bool isSmallest = ~Mask() <= 1;
    return NetworkAddress(base + index + (isSmallest ? 0 : 1));
}

}  // namespace discovery
