// Finds the devices of the network through the package's two libraries and hands them to the page.
#pragma once

#include <atomic>
#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "catalogue/DriverInfo.h"
#include "discovery/DeviceDocuments.h"
#include "discovery/DiscoveredDevice.h"
#include "discovery/FirewallRules.h"
#include "discovery/IDiscoveryDialog.h"
#include "framework/Handles.h"
#include "settings/InstallSettings.h"
#include "wizard/Service.h"

class Controller;

// Lives on the page's thread; each run has a worker of its own, and workers follow one another. A library or
// an export that is missing is no error: the run then finds what it can. Sondrix.dll finds devices,
// Quelmar.dll asks them. From the first run until Close the firewall lets their answers in.
class DiscoveryService : public Service {
public:
    // Loads the libraries that stand beside the program. The page may be null; all of them must outlive this
    // object otherwise. Reads INSTALL_FROM_CONFIG, IPADDRESS, MODEL_NAME, OEMBYTE, SUBNETADDRESS and UPD;
    // reads and writes DISCOVER_PARAMS.
    DiscoveryService(IDiscoveryDialog* discoveryPage, InstallSettings& store,
                     const DriverInfo& driverCatalogue, Controller& walk);
    DiscoveryService(const DiscoveryService&) = delete;
    DiscoveryService& operator=(const DiscoveryService&) = delete;
    // Waits for a worker that still runs.
    ~DiscoveryService() override;

    // Fills the page's list of drivers and starts a worker. Returns 0.
    std::uint32_t DoRun() override;
    // For good: the running worker delivers nothing, and no later one does anything.
    void Cancel() override { cancelled = true; }
    // Closes the firewall again and the libraries, which a worker that is still at work keeps open.
    void Close() override;

private:
    void OpenFirewall();
    void CloseLibraries();
    std::uint32_t DoDiscovery();
    std::uint32_t Discover();
    std::uint32_t Enumerate();
    std::list<DiscoveredDevice> ProcessDevices();
    void ExchangeColours(const std::wstring& addresses, DeviceIndex& index) const;
    void ExchangeFax(const std::wstring& addresses, DeviceIndex& index) const;
    void OfferDrivers() const;

    Library sondrixModule;
    Library quelmarModule;
    // The documents of the last successful enumeration. The worker's own, under the discovery lock.
    std::vector<std::wstring> devices;
    IDiscoveryDialog* page;
    InstallSettings& settings;
    const DriverInfo& drivers;
    Controller& controller;
    std::atomic<bool> cancelled = false;
    FirewallRules firewall;
    bool isFirewallOpen = false;
};

// Returns the search document of the next run: what the user chose, else the package's preset. Any thread.
std::wstring BuildSearchDocument(const InstallSettings& settings);
