// A test of discovery over a network that the two scripted libraries play.
#pragma once

#include <windows.h>

#include <list>
#include <memory>
#include <string>
#include <vector>

#include "discovery/DiscoveryService.h"
#include "discovery/IDiscoveryDialog.h"
#include "framework/CWnd.h"
#include "tests/windows/world/CatalogueWorld.h"
#include "tests/wizard/LibraryCalls.h"

// A page that notes what the service tells it.
class NotingPage : public CWnd, public IDiscoveryDialog {
public:
    void ClearDrivers() override { drivers = {L"(cleared)"}; }
    void AddDriver(const MSI_APP& driver) override { drivers.push_back(driver.driverName); }
    void SetDevices(std::list<DiscoveredDevice> devices) override;
    void NoPrinterFound() override { ++nothingFound; }
    std::wstring GetReceivedMessage() const override { return message; }

    std::vector<std::wstring> drivers;
    std::wstring message;
    // The addresses of each delivery, and the records of the last.
    std::vector<std::vector<std::wstring>> deliveries;
    std::list<DiscoveredDevice> delivered;
    int nothingFound = 0;
    DWORD deliveringThread = 0;
};

// The libraries lie beside the test program as long as a test lasts.
class NetworkWorld : public CatalogueWorld {
protected:
    NetworkWorld();
    ~NetworkWorld() override;

    // Takes those builds: "complete", "without_" and an export, or none for an empty name.
    void UseLibraries(const std::wstring& sondrix, const std::wstring& quelmar);
    // Adds a line to the script of the network.
    void Script(const std::vector<std::wstring>& fields) const;
    // Adds a device of that address to the listing, with more tags after it.
    void AddDevice(const std::wstring& address, const std::wstring& moreTags = {}) const;

    // Makes the service for the page.
    void Start(IDiscoveryDialog* pageOfService);
    void Start() { Start(&page); }
    // Runs it once and gives the exit code of its worker; 259 for one that does not end.
    DWORD Run() const;

    static std::vector<LibraryCall> Calls();
    std::vector<std::wstring> CallNames() const;

    NotingPage page;
    std::unique_ptr<DiscoveryService> service;

private:
    static void RemoveFiles();
};
