#include "discovery/DiscoveryService.h"

#include <mutex>
#include <utility>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "catalogue/DriverInfo.h"
#include "catalogue/MsiCodes.h"
#include "framework/AfxBeginThread.h"
#include "framework/CWnd.h"
#include "settings/InstallSettings.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"

namespace {

// The exports of Sondrix.dll, and those of Quelmar.dll that bring it up and down.
using LifeFunction = void (*)();
using DiscoverFunction = std::uint32_t (*)(const wchar_t* searchDocument);
using EnumerateFunction = std::uint32_t (*)(wchar_t* buffer, std::uint32_t capacity, std::uint32_t* required,
                                            const wchar_t* enumerationDocument);

// Room for the documents of more devices than any network holds.
constexpr std::uint32_t largestListing = 1u << 26;

// Workers follow one another, whichever service they belong to.
std::mutex discoveryLock;

void CallIfExported(const Library& library, const char* name) {
    const auto function = library ? FindExport<LifeFunction>(library.get(), name) : nullptr;
    if (function != nullptr) function();
}

// Takes the worker off the count however its run ends: the program waits for what counts.
struct CountedRun {
    CountedRun() = default;
    CountedRun(const CountedRun&) = delete;
    CountedRun& operator=(const CountedRun&) = delete;
    ~CountedRun() { Controller::GetInstance().UpdateThreadCount(false); }
};

// The series of this package's models, for a package that installs nothing but them.
std::wstring SeriesList() {
    const InstallSettings& settings = InstallSettings::GetInstance();
    std::wstring list;
    if (settings.GetString(Tag::UPD) != L"0") return list;
    for (const auto& [brand, series] : settings.GetKeyedValues(Tag::MODEL_NAME, L":")) {
        if (!brand.empty() && !series.empty()) list += series + L";";
    }
    return list;
}

}  // namespace

std::wstring BuildSearchDocument() {
    InstallSettings& settings = InstallSettings::GetInstance();
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
    settings.SetString(Tag::DISCOVER_PARAMS, document);
    return document;
}

DiscoveryService::DiscoveryService(CWnd* pageObject)
    : sondrixModule(LoadLibraryW((GetExeDirectory() + L"\\Sondrix.dll").c_str())),
      quelmarModule(LoadLibraryW((GetExeDirectory() + L"\\Quelmar.dll").c_str())),
      page(dynamic_cast<IDiscoveryDialog*>(pageObject)),
      firewall(GetExePath(), L"Kestrune") {
    CallIfExported(sondrixModule, "Initialize");
    CallIfExported(quelmarModule, "BidiInitialize");
    firewall.AddRule();
}

DiscoveryService::~DiscoveryService() {
    const std::lock_guard guard(discoveryLock);
    CallIfExported(sondrixModule, "Uninitialize");
    sondrixModule.reset();
    CallIfExported(quelmarModule, "BidiUninitialize");
    quelmarModule.reset();
    firewall.RemoveRule();
}

std::uint32_t DiscoveryService::DoRun() {
    if (!InstallSettings::GetInstance().GetBool(Tag::INSTALL_FROM_CONFIG)) OfferDrivers();
    if (page == nullptr) return 0;
    Controller& controller = Controller::GetInstance();
    controller.UpdateThreadCount(true);
    const bool started = AfxBeginThread([this] {
        const std::lock_guard guard(discoveryLock);
        const CountedRun run;
        return DoDiscovery();
    });
    if (!started) controller.UpdateThreadCount(false);
    return 0;
}

void DiscoveryService::OfferDrivers() const {
    const std::vector<MSI_APP> drivers = DriverInfo::GetInstance().GetDrivers();
    if (page == nullptr) return;
    page->ClearDrivers();
    for (const MSI_APP& driver : drivers) {
        if (driver.isPrinterDriver) page->AddDriver(driver);
    }
}

std::uint32_t DiscoveryService::DoDiscovery() {
    if (cancelled) return MsiCode::UserCancelled;
    LogBasic(L"Discovering network devices.");
    LogAdvanced(L"DiscoveryService::DoDiscovery() Start");
    const std::uint32_t code = Discover();
    std::list<DiscoveredDevice> found;
    ProcessDevices(found);
    if (cancelled) return MsiCode::UserCancelled;
    page->SetDevices(std::move(found));
    LogAdvanced(L"DiscoveryService::DoDiscovery() Complete errorCode= " + std::to_wstring(code));
    return code;
}

std::uint32_t DiscoveryService::Discover() {
    const auto discover =
        sondrixModule ? FindExport<DiscoverFunction>(sondrixModule.get(), "DiscoverW") : nullptr;
    if (discover == nullptr) return MsiCode::Success;
    const std::uint32_t code = discover(BuildSearchDocument().c_str());
    if (cancelled) return MsiCode::UserCancelled;
    return code == MsiCode::Success ? Enumerate() : code;
}

// The first call has room for the terminator alone and learns what the listing needs.
std::uint32_t DiscoveryService::Enumerate() {
    const auto enumerate = FindExport<EnumerateFunction>(sondrixModule.get(), "EnumerateW");
    if (enumerate == nullptr) return MsiCode::Success;
    const std::wstring document =
        EnumerationDocument(InstallSettings::GetInstance().GetString(Tag::OEMBYTE), SeriesList());
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

void DiscoveryService::ProcessDevices(std::list<DiscoveredDevice>& found) {
    if (cancelled) return;
    if (devices.empty()) {
        LogBasic(L"No printer found.");
        page->NoPrinterFound();
        return;
    }
    const std::wstring addresses = AddressList(devices);
    DeviceIndex index(devices);
    // Each asks nothing once the run is cancelled.
    ExchangeColours(addresses, index);
    ExchangeFax(addresses, index);
    if (cancelled) return;
    const std::wstring message = page->GetReceivedMessage();
    found.clear();
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
}
