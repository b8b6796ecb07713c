#include "ports/AddPortService.h"

#include "settings/TagNames.h"

std::uint32_t AddPortService::DoRun() {
    if (!settings.GetBool(Tag::INSTALL_FROM_CONFIG) && page != nullptr) FillDrivers();
    ports = SystemPorts();
    if (page != nullptr) page->FillPortList(ports);
    return 0;
}

void AddPortService::FillDrivers() const {
    page->ClearDrivers();
    for (const MSI_APP& driver : drivers.GetDrivers()) {
        if (driver.isPrinterDriver) page->AddDriver(driver);
    }
}
