// Feeds the page for a port by hand with what this system and the package have.
#pragma once

#include <vector>

#include "catalogue/DriverInfo.h"
#include "ports/IAddPortDialog.h"
#include "settings/InstallSettings.h"
#include "wizard/Service.h"

class AddPortService : public Service {
public:
    // None is owned; without a page only the ports are read. Reads INSTALL_FROM_CONFIG.
    AddPortService(IAddPortDialog* addPortPage, const InstallSettings& store,
                   const DriverInfo& driverCatalogue)
        : page(addPortPage), settings(store), drivers(driverCatalogue) {}

    // Fills the page's lists anew, on the page's thread. Returns 0. A system that does not list its ports has
    // none.
    std::uint32_t DoRun() override;
    void Cancel() override {}

private:
    void FillDrivers() const;

    std::vector<PortEntry> ports;
    IAddPortDialog* page;
    const InstallSettings& settings;
    const DriverInfo& drivers;
};
