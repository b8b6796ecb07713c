#include "standins/discovery/MulticastDns.h"
#include "tests/fuzz/FuzzInput.h"

using discovery::Bytes;

// The input as two answers of one host, the second cut off the first; what is learned of them is collected.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Bytes packet(reinterpret_cast<const char*>(data), size);
    const auto response = discovery::DecodeDnsResponse(packet);
    if (!response) return 0;
    Require(response->records.size() <= size);
    discovery::MulticastDns search(response->id, {1});
    for (const Bytes& each : {packet, packet.substr(0, size / 2)}) {
        search.Receive({.peer = discovery::NetworkAddress(0xC0000207),
                        .port = discovery::multicastDnsPort,
                        .link = 0,
                        .bytes = each});
    }
    std::vector<discovery::Datagram> out;
    search.AskForMissing(out);
    discovery::FoundDevices devices;
    search.Collect(devices);
    Require(devices.Printers().size() <= response->records.size());
    return 0;
}
