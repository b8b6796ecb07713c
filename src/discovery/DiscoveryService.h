// Finds the devices of the network through the package's two libraries and hands them to the page.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "discovery/DeviceDocuments.h"
#include "discovery/DiscoveredDevice.h"
#include "discovery/FirewallRules.h"
#include "discovery/IDiscoveryDialog.h"
#include "framework/Handles.h"
#include "wizard/Service.h"

class CWnd;

// Lives on the page's thread; each run has a worker of its own, and workers follow one another. A library or
// an export that is missing is no error: the run then finds what it can. Sondrix.dll finds devices,
// Quelmar.dll asks them. While this object lives, the firewall lets their answers in.
class DiscoveryService : public Service {
public:
    // Loads the libraries that stand beside the program. The page may be null, or none that takes devices; it
    // must outlive this object otherwise.
    explicit DiscoveryService(CWnd* pageObject);
    DiscoveryService(const DiscoveryService&) = delete;
    DiscoveryService& operator=(const DiscoveryService&) = delete;
    // Waits for a worker that still runs.
    ~DiscoveryService() override;

    // Fills the page's list of drivers and starts a worker. Gives 0.
    std::uint32_t DoRun() override;
    // For good: the running worker delivers nothing, and no later one does anything.
    void Cancel() override { cancelled = true; }

private:
    std::uint32_t DoDiscovery();
    std::uint32_t Discover();
    std::uint32_t Enumerate();
    void ProcessDevices(std::list<DiscoveredDevice>& found);
    void ExchangeColours(const std::wstring& addresses, DeviceIndex& index) const;
    void ExchangeFax(const std::wstring& addresses, DeviceIndex& index) const;
    void OfferDrivers() const;

    Library sondrixModule;
    Library quelmarModule;
    // The documents of the last successful enumeration. The worker's own, under the discovery lock.
    std::vector<std::wstring> devices;
    IDiscoveryDialog* page;
    std::atomic<bool> cancelled = false;
    FirewallRules firewall;
};

// The search document of the next run: what the user chose, else the package's preset, which it then keeps.
std::wstring BuildSearchDocument();
