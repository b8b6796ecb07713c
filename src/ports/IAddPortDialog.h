// How the port service reaches the page that it fills.
#pragma once

#include <vector>

#include "catalogue/MSI_APP.h"
#include "printer/SystemPorts.h"

// All on the page's thread.
class IAddPortDialog {
public:
    IAddPortDialog() = default;
    IAddPortDialog(const IAddPortDialog&) = delete;
    IAddPortDialog& operator=(const IAddPortDialog&) = delete;
    virtual ~IAddPortDialog() = default;

    virtual void ClearDrivers() = 0;
    // Adds the driver and selects the package's default, if the list holds it by now.
    virtual void AddDriver(const MSI_APP& driver) = 0;
    virtual void FillPortList(const std::vector<PortEntry>& ports) = 0;
};
