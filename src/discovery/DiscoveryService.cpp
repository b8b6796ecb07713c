#include "discovery/DiscoveryService.h"

#include <mutex>
#include <utility>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/PackageLibraries.h"
#include "framework/SystemLibrary.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"
#include "wizard/CountedWorker.h"

namespace {

// Room for the documents of more devices than any network holds.
constexpr std::uint32_t largestListing = 1u << 26;

// Workers follow one another, whichever service they belong to.
std::mutex discoveryLock;

void CallIfExported(const Library& library, const char* name) {
    const auto function = library ? FindExport<decltype(&Initialize)>(library.get(), name) : nullptr;
    if (function != nullptr) function();
}

// The series of this package's models, for a package that installs nothing but them.
std::wstring SeriesList(const InstallSettings& settings) {
    std::wstring list;
    if (settings.GetString(Tag::UPD) != L"0") return list;
    for (const auto& [brand, series] : settings.GetKeyedValues(Tag::MODEL_NAME, L":")) {
        if (!brand.empty() && !series.empty()) list += series + L";";
    }
    return list;
}

}  // namespace

std::wstring BuildSearchDocument(const InstallSettings& settings) {
    std::wstring document = settings.GetString(Tag::DISCOVER_PARAMS);
    if (!document.empty()) return document;
    const std::wstring address = settings.GetString(Tag::IPADDRESS);
    const std::wstring subnet = settings.GetString(Tag::SUBNETADDRESS);
    if (!address.empty()) {
        LogBasic(L"Filter for IP Address: " + address);
        document = TagDocument::MakeElement(Tag::UNICAST_ADDRESS, address);
    } else if (!subnet.empty()) {
        LogBasic(L"Filter for Subnet Address: " + subnet);
        document = TagDocument::MakeElement(Tag::REMOTE_SUBNETS, subnet + L";");
    }
    return document;
}

DiscoveryService::DiscoveryService(IDiscoveryDialog* discoveryPage, InstallSettings& store,
                                   const DriverInfo& driverCatalogue, Controller& walk)
    : sondrixModule(LoadPackageLibrary(GetExeDirectory() + L"\\Sondrix.dll")),
      quelmarModule(LoadPackageLibrary(GetExeDirectory() + L"\\Quelmar.dll")),
      page(discoveryPage),
      settings(store),
      drivers(driverCatalogue),
      controller(walk),
      firewall(GetExePath(), L"Kestrune") {
    CallIfExported(sondrixModule, "Initialize");
    CallIfExported(quelmarModule, "BidiInitialize");
}

DiscoveryService::~DiscoveryService() {
    const std::lock_guard guard(discoveryLock);
    CloseLibraries();
    firewall.RemoveRule();
}

void DiscoveryService::Close() {
    cancelled = true;
    firewall.RemoveRule();
    const std::unique_lock guard(discoveryLock, std::try_to_lock);
    if (guard) CloseLibraries();
}

void DiscoveryService::CloseLibraries() {
    CallIfExported(sondrixModule, "Uninitialize");
    sondrixModule.reset();
    CallIfExported(quelmarModule, "BidiUninitialize");
    quelmarModule.reset();
}

void DiscoveryService::OpenFirewall() {
    if (isFirewallOpen || cancelled) return;
    firewall.AddRule();
    isFirewallOpen = true;
}

std::uint32_t DiscoveryService::DoRun() {
    if (!settings.GetBool(Tag::INSTALL_FROM_CONFIG)) OfferDrivers();
    if (page == nullptr) return 0;
    OpenFirewall();
    static_cast<void>(StartCountedWorker(controller, [this] {
        const std::lock_guard guard(discoveryLock);
        return DoDiscovery();
    }));
    return 0;
}

void DiscoveryService::OfferDrivers() const {
    if (page == nullptr) return;
    page->ClearDrivers();
    for (const MSI_APP& driver : drivers.GetDrivers()) {
        if (driver.isPrinterDriver) page->AddDriver(driver);
    }
}

std::uint32_t DiscoveryService::DoDiscovery() {
    if (cancelled) return MsiCode::UserCancelled;
    LogBasic(L"Discovering network devices.");
    LogAdvanced(L"DiscoveryService::DoDiscovery() Start");
    const std::uint32_t code = Discover();
    std::list<DiscoveredDevice> found = ProcessDevices();
    if (cancelled) return MsiCode::UserCancelled;
    page->SetDevices(std::move(found));
    LogAdvanced(L"DiscoveryService::DoDiscovery() Complete errorCode= " + std::to_wstring(code));
    return code;
}

std::uint32_t DiscoveryService::Discover() {
    const auto discover =
        sondrixModule ? FindExport<decltype(&DiscoverW)>(sondrixModule.get(), "DiscoverW") : nullptr;
    if (discover == nullptr) return MsiCode::Success;
    const std::wstring search = BuildSearchDocument(settings);
    // A preset stays the search until the user chooses another.
    if (settings.GetString(Tag::DISCOVER_PARAMS).empty()) settings.SetString(Tag::DISCOVER_PARAMS, search);
    const std::uint32_t code = discover(search.c_str());
    if (cancelled) return MsiCode::UserCancelled;
    return code == MsiCode::Success ? Enumerate() : code;
}

// The first call has room for the terminator alone and learns what the listing needs.
std::uint32_t DiscoveryService::Enumerate() {
    const auto enumerate = FindExport<decltype(&EnumerateW)>(sondrixModule.get(), "EnumerateW");
    if (enumerate == nullptr) return MsiCode::Success;
    const std::wstring document = EnumerationDocument(settings.GetString(Tag::OEMBYTE), SeriesList(settings));
    std::wstring listing(1, L'\0');
    std::uint32_t required = 0;
    std::uint32_t code = enumerate(listing.data(), 1, &required, document.c_str());
    if (cancelled) return MsiCode::UserCancelled;
    if (code == MsiCode::BufferTooSmall) {
        if (required > largestListing) {
            LogBasic(L"Sondrix.dll asks for a listing of " + std::to_wstring(required) + L" characters",
                     LogLevel::Error);
            return code;
        }
        listing.assign(required, L'\0');
        code = enumerate(listing.data(), required, &required, document.c_str());
        if (cancelled) return MsiCode::UserCancelled;
    }
    if (code == MsiCode::Success) devices = SplitEnumeration(std::move(listing));
    return code;
}

std::list<DiscoveredDevice> DiscoveryService::ProcessDevices() {
    std::list<DiscoveredDevice> found;
    if (cancelled) return found;
    if (devices.empty()) {
        LogBasic(L"No printer found.");
        page->NoPrinterFound();
        return found;
    }
    const std::wstring addresses = AddressList(devices);
    DeviceIndex index(devices);
    // Each asks nothing once the run is cancelled.
    ExchangeColours(addresses, index);
    ExchangeFax(addresses, index);
    if (cancelled) return found;
    const std::wstring message = page->GetReceivedMessage();
    for (const std::wstring& document : devices) {
        DiscoveredDevice device = ReadDevice(document);
        const std::wstring address = device.address;
        if (IsKept(device, message)) found.push_back(std::move(device));
        LogBasic(L"Found device with IP address " + address);
    }
    if (!cancelled && found.empty()) {
        LogBasic(L"No filtered printer found.");
        page->NoPrinterFound();
    }
    return found;
}
