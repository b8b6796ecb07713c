#include "standins/Sondrix/DeviceFinder.h"

#include <algorithm>
#include <random>
#include <utility>

#include "CommonLib/TextUtilities.h"
#include "standins/Sondrix/LibraryFiles.h"
#include "standins/network/HostName.h"
#include "standins/network/SearchRun.h"
#include "standins/network/SystemNames.h"

namespace sondrix {

using discovery::DeviceFacts;
using discovery::LocalLink;
using discovery::NetworkAddress;
using discovery::SearchPlan;
using discovery::Subnet;
using discovery::Time;

namespace {

// A local subnet is asked address by address up to this size, /22.
constexpr int largestSweptPrefix = 22;
// What a user asks for is asked, up to that many addresses; beyond it a search would take minutes.
constexpr std::uint32_t mostSweptHosts = 65536;
constexpr DWORD namePatience = 4000;
constexpr std::wstring_view localEnd = L".local";

// The time that a sweep of so many hosts takes at most, with its repetitions.
Time SweepLimit(std::uint32_t hosts) {
    constexpr int passes = 6;
    return Time(5000 + passes * hosts);
}

void PlanNeighbours(SearchPlan& plan) {
    plan.asksNeighbours = true;
    for (const discovery::Link& link : plan.links) {
        std::ranges::copy_if(link.subnets, std::back_inserter(plan.sweeps), [](const Subnet& subnet) {
            return subnet.PrefixLength() >= largestSweptPrefix;
        });
    }
}

void PlanSubnets(SearchPlan& plan, const discovery::RemoteSubnets& scope) {
    std::uint32_t hosts = 0;
    for (const Subnet& subnet : scope.subnets) {
        if (subnet.HostCount() > mostSweptHosts - hosts) continue;
        hosts += subnet.HostCount();
        plan.sweeps.push_back(subnet);
    }
    plan.limit = SweepLimit(hosts);
}

std::string Narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

}  // namespace

std::uint32_t DeviceFinder::Discover(const std::wstring& searchDocument) {
    const std::lock_guard searching(searchLock);
    const discovery::SocketLibrary library;
    if (library.Code() != 0) return library.Code();
    const std::vector<LocalLink> links = discovery::ReadLocalLinks();
    discovery::Search search(PlanFor(discovery::ReadSearchDocument(searchDocument), links));
    if (!discovery::SearchRun(links).Run(search, cancellation.Event())) return ERROR_CANCELLED;
    std::vector<DeviceFacts> found = search.Printers();
    discovery::AddHardwareAddresses(found);
    const std::lock_guard guard(devicesLock);
    devices = std::move(found);
    return ERROR_SUCCESS;
}

SearchPlan DeviceFinder::PlanFor(const discovery::SearchScope& scope,
                                 const std::vector<LocalLink>& links) const {
    SearchPlan plan;
    plan.community = ReadCommunity();
    plan.secret = std::random_device()();
    for (const LocalLink& link : links) plan.links.push_back(link.link);
    if (const auto* const host = std::get_if<discovery::OneHost>(&scope)) {
        PlanHost(plan, host->name);
    } else if (const auto* const subnets = std::get_if<discovery::RemoteSubnets>(&scope)) {
        PlanSubnets(plan, *subnets);
    } else {
        PlanNeighbours(plan);
    }
    return plan;
}

// By design: a name that ends in "local" is asked of the neighbours, as the system may not know how; every
// other name is the system's.
void DeviceFinder::PlanHost(SearchPlan& plan, const std::wstring& name) const {
    const auto address = NetworkAddress::FromText(name);
    const bool isLocal =
        name.size() > localEnd.size() &&
        EqualsIgnoringCase(std::wstring_view(name).substr(name.size() - localEnd.size()), localEnd);
    if (address) {
        plan.hosts.push_back({.address = *address, .ipp = {}});
    } else if (isLocal) {
        plan.localName = Narrow(name);
    } else {
        for (const NetworkAddress& each :
             discovery::ResolveHostName(name, cancellation.Event(), namePatience)) {
            plan.hosts.push_back({.address = each, .ipp = {}});
        }
    }
}

std::wstring DeviceFinder::List(const std::wstring& enumerationDocument) const {
    const auto filter = discovery::ReadEnumerationDocument(enumerationDocument, ReadMakers());
    const std::lock_guard guard(devicesLock);
    return discovery::MakeListing(devices, filter, discovery::DoesSystemResolveLocalNames());
}

std::optional<std::wstring> DeviceFinder::Recall(const std::wstring& address) const {
    const auto wanted = NetworkAddress::FromText(address);
    const std::lock_guard guard(devicesLock);
    const auto found = std::ranges::find_if(devices, [&](const DeviceFacts& device) {
        return wanted && std::ranges::find(device.addresses, *wanted) != device.addresses.end();
    });
    if (found == devices.end()) return std::nullopt;
    return discovery::MakeRecallDocument(*found);
}

}  // namespace sondrix
