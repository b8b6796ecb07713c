#include "standins/network/LocalLinks.h"

#include <iphlpapi.h>

#include <algorithm>
#include <map>

#include "standins/network/Sockets.h"

namespace discovery {

namespace {

// Enough for hundreds of interfaces, so that one call does.
constexpr ULONG firstListSize = 256 * 1024;
// The list can grow between two calls.
constexpr int mostTries = 4;

std::vector<std::uint8_t> ReadAdapters() {
    constexpr ULONG flags = GAA_FLAG_SKIP_ANYCAST | GAA_FLAG_SKIP_MULTICAST | GAA_FLAG_SKIP_DNS_SERVER |
                            GAA_FLAG_SKIP_FRIENDLY_NAME;
    std::vector<std::uint8_t> list(firstListSize);
    for (int attempt = 0; attempt < mostTries; ++attempt) {
        auto size = static_cast<ULONG>(list.size());
        auto* const first = reinterpret_cast<IP_ADAPTER_ADDRESSES*>(list.data());
        const ULONG code = GetAdaptersAddresses(AF_UNSPEC, flags, nullptr, first, &size);
        if (code == ERROR_SUCCESS) return list;
        if (code != ERROR_BUFFER_OVERFLOW) break;
        list.resize(size);
    }
    return {};
}

bool IsLocalNetwork(const IP_ADAPTER_ADDRESSES& adapter) {
    return adapter.OperStatus == IfOperStatusUp && adapter.IfType != IF_TYPE_SOFTWARE_LOOPBACK &&
           adapter.IfType != IF_TYPE_TUNNEL && adapter.IfType != IF_TYPE_PPP;
}

LocalLink ReadLink(const IP_ADAPTER_ADDRESSES& adapter) {
    // An interface has one number for both versions; some systems tell only the first.
    const DWORD number = adapter.Ipv6IfIndex != 0 ? adapter.Ipv6IfIndex : adapter.IfIndex;
    LocalLink local{.link = {.zone = number, .subnets = {}}, .addresses = {}};
    for (const IP_ADAPTER_UNICAST_ADDRESS* each = adapter.FirstUnicastAddress; each != nullptr;
         each = each->Next) {
        const NetworkAddress address = AddressOf(each->Address.lpSockaddr);
        if (address.IsIpV6()) {
            local.ipV6Index = number;
        } else if (address.IsHost()) {
            local.addresses.push_back(address);
            local.link.subnets.emplace_back(address, each->OnLinkPrefixLength);
        }
    }
    return local;
}

std::map<NetworkAddress, Bytes> ReadNeighbours() {
    std::map<NetworkAddress, Bytes> neighbours;
    ULONG size = 0;
    if (GetIpNetTable(nullptr, &size, FALSE) != ERROR_INSUFFICIENT_BUFFER) return neighbours;
    std::vector<std::uint8_t> list(size);
    auto* const table = reinterpret_cast<MIB_IPNETTABLE*>(list.data());
    if (GetIpNetTable(table, &size, FALSE) != ERROR_SUCCESS) return neighbours;
    std::for_each_n(table->table, table->dwNumEntries, [&](const MIB_IPNETROW& row) {
        const auto length = std::min<std::size_t>(row.dwPhysAddrLen, MAXLEN_PHYSADDR);
        neighbours[NetworkAddress(ntohl(row.dwAddr))] = Bytes(row.bPhysAddr, row.bPhysAddr + length);
    });
    return neighbours;
}

}  // namespace

std::vector<LocalLink> ReadLocalLinks() {
    std::vector<LocalLink> links;
    const std::vector<std::uint8_t> list = ReadAdapters();
    if (list.empty()) return links;
    const auto* adapter = reinterpret_cast<const IP_ADAPTER_ADDRESSES*>(list.data());
    for (; adapter != nullptr; adapter = adapter->Next) {
        if (!IsLocalNetwork(*adapter)) continue;
        LocalLink local = ReadLink(*adapter);
        if (!local.addresses.empty() || local.ipV6Index != 0) links.push_back(std::move(local));
    }
    return links;
}

void AddHardwareAddresses(std::vector<DeviceFacts>& devices) {
    constexpr std::size_t hardwareAddressSize = 6;
    const std::map<NetworkAddress, Bytes> neighbours = ReadNeighbours();
    for (DeviceFacts& device : devices) {
        for (const NetworkAddress& address : device.addresses) {
            const auto found = neighbours.find(address);
            const bool isUsable = found != neighbours.end() && found->second.size() == hardwareAddressSize;
            if (device.hardwareAddress.empty() && isUsable) device.hardwareAddress = found->second;
        }
    }
}

}  // namespace discovery
