#include <benchmark/benchmark.h>

#include <list>

#include "discovery/DeviceDocuments.h"
#include "discovery/NpaReply.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "tests/fakes/NpaPacket.h"

namespace {

std::wstring AddressOf(std::int64_t number) {
    return L"10." + std::to_wstring(number / 65536) + L"." + std::to_wstring(number / 256 % 256) + L"." +
           std::to_wstring(number % 256);
}

std::wstring DeviceDocument(std::int64_t number) {
    return TagDocument::MakeElement(Tag::IPADDRESS, AddressOf(number)) +
           TagDocument::MakeElement(Tag::IPNAME, L"PRINTER-" + std::to_wstring(number)) +
           TagDocument::MakeElement(Tag::MACUAA, L"02005E000000") +
           TagDocument::MakeElement(Tag::MODEL_STRING, L"Model " + std::to_wstring(number % 40)) +
           TagDocument::MakeElement(Tag::SERIESSTRID, L"Series " + std::to_wstring(number % 10));
}

std::wstring Listing(std::int64_t count) {
    std::wstring listing;
    for (std::int64_t number = 0; number < count; ++number) listing += DeviceDocument(number) + L'\0';
    return listing;
}

std::wstring ColourReply(std::int64_t count) {
    std::wstring reply;
    // From the last to the first, the worst order for a search from the front.
    for (std::int64_t number = count; number-- > 0;) reply += AddressOf(number) + L":color;";
    return reply;
}

// All that a run computes for so many devices: from the listing to the records, with both replies.
void ProcessesDevices(benchmark::State& state) {
    const std::wstring listing = Listing(state.range(0));
    const std::wstring reply = ColourReply(state.range(0));
    for (auto _ : state) {
        std::vector<std::wstring> documents = SplitEnumeration(listing);
        benchmark::DoNotOptimize(AddressList(documents));
        DeviceIndex index(documents);
        ApplyColours(reply, index);
        for (std::int64_t number = 0; number < state.range(0); ++number) {
            index.SetTag(AddressOf(number), Tag::FAXINSTALLED, L"1");
        }
        std::list<DiscoveredDevice> found;
        for (const std::wstring& document : documents) found.push_back(ReadDevice(document));
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(ProcessesDevices)->Arg(10)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void DecodesAReply(benchmark::State& state) {
    const Npa::Builder builder;
    std::vector<Npa::Bytes> values;
    for (std::int64_t number = 0; number < state.range(0); ++number) {
        values.push_back(builder.Text(2, "a text of thirty-two characters."));
    }
    const Npa::Bytes packet = builder.Packet({builder.Group(
        1, {builder.Group(2, values), builder.Group(3, {builder.Group(17, {builder.Number(3, {1})})})})});
    const auto widen = [](std::string_view text) { return std::wstring(text.begin(), text.end()); };
    for (auto _ : state) benchmark::DoNotOptimize(DecodeNpaReply(packet, widen));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(packet.size()));
}
BENCHMARK(DecodesAReply)->Arg(1)->Arg(10)->Arg(250);

// The worst that lengths can do: groups that name the bytes after them over and over.
void RefusesALyingReply(benchmark::State& state) {
    const Npa::Builder builder;
    Npa::Bytes tree;
    for (int group = 0; group < 12000; ++group) {
        const Npa::Bytes head = builder.LyingGroup(1, 200, 0, {});
        tree.insert(tree.end(), head.begin(), head.end());
    }
    const Npa::Bytes packet = Npa::PacketOf(builder.Layout(), tree);
    const auto widen = [](std::string_view text) { return std::wstring(text.begin(), text.end()); };
    for (auto _ : state) benchmark::DoNotOptimize(DecodeNpaReply(packet, widen));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(packet.size()));
}
BENCHMARK(RefusesALyingReply);

}  // namespace
