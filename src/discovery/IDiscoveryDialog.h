// How the discovery service reaches the page that shows its findings.
#pragma once

#include <list>
#include <string>

#include "catalogue/MSI_APP.h"
#include "discovery/DiscoveredDevice.h"

class IDiscoveryDialog {
public:
    IDiscoveryDialog() = default;
    IDiscoveryDialog(const IDiscoveryDialog&) = delete;
    IDiscoveryDialog& operator=(const IDiscoveryDialog&) = delete;
    virtual ~IDiscoveryDialog() = default;

    // The page's thread calls these two.
    virtual void ClearDrivers() = 0;
    virtual void AddDriver(const MSI_APP& driver) = 0;

    // The discovery worker calls these, also when the page's window is gone.
    virtual void SetDevices(std::list<DiscoveredDevice> devices) = 0;
    virtual void NoPrinterFound() = 0;
    // The message that the page was last shown with.
    virtual std::wstring GetReceivedMessage() const = 0;
};
