#include "standins/Quelmar/DeviceQuestions.h"

#include <algorithm>
#include <random>
#include <utility>

#include "CommonLib/PackageLibraries.h"
#include "standins/discovery/Documents.h"
#include "standins/network/Recall.h"
#include "standins/network/SearchRun.h"

namespace quelmar {

using discovery::DeviceFacts;
using discovery::NetworkAddress;
using discovery::Time;

namespace {

// What the other library learned while it looked for devices; nothing known where it is not there.
DeviceFacts Recall(const std::wstring& address) {
    const auto recall = FindExport<decltype(&RecallW)>(GetModuleHandleW(L"Sondrix.dll"), "RecallW");
    std::uint32_t length = 0;
    if (recall == nullptr || recall(address.c_str(), nullptr, 0, &length) != ERROR_INSUFFICIENT_BUFFER)
        return {};
    std::wstring document(length, L'\0');
    if (recall(address.c_str(), document.data(), length, &length) != ERROR_SUCCESS) return {};
    return discovery::ReadRecallDocument(document);
}

}  // namespace

std::vector<DeviceFacts> DeviceQuestions::Ask(const std::vector<std::wstring>& addresses, Time limit) {
    const std::lock_guard guard(lock);
    std::vector<std::wstring> silent;
    for (const std::wstring& address : addresses) {
        DeviceFacts& facts = known[address];
        discovery::Complete(facts, Recall(address));
        if (!facts.isColour) silent.push_back(address);
    }
    if (!silent.empty()) AskNetwork(silent, limit);
    std::vector<DeviceFacts> told;
    told.reserve(addresses.size());
    for (const std::wstring& address : addresses) told.push_back(known[address]);
    return told;
}

DeviceFacts DeviceQuestions::AskOne(const std::wstring& address, Time limit) {
    {
        const std::lock_guard guard(lock);
        const auto found = known.find(address);
        if (found != known.end()) return found->second;
    }
    return Ask({address}, limit).front();
}

void DeviceQuestions::AskNetwork(const std::vector<std::wstring>& addresses, Time limit) {
    const discovery::SocketLibrary library;
    discovery::SearchPlan plan{.limit = limit, .secret = std::random_device()()};
    for (const std::wstring& address : addresses) {
        const auto host = NetworkAddress::FromText(address);
        if (host) plan.hosts.push_back({.address = *host, .ipp = known[address].ipp});
    }
    if (library.Code() != 0 || plan.hosts.empty()) return;
    discovery::Search search(std::move(plan));
    discovery::SearchRun({}).Run(search, cancellation.Event());
    const discovery::FoundDevices devices = search.Devices();
    for (const std::wstring& address : addresses) {
        const auto host = NetworkAddress::FromText(address);
        const DeviceFacts* const facts = host ? devices.Find(*host) : nullptr;
        if (facts != nullptr) discovery::Complete(known[address], *facts);
    }
}

void DeviceQuestions::Begin() {
    const std::lock_guard guard(lock);
    known.clear();
    cancellation.Begin();
}

}  // namespace quelmar
