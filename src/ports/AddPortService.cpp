#include "ports/AddPortService.h"

#include <windows.h>

#include <winspool.h>

#include <span>

#include "catalogue/DriverInfo.h"
#include "ports/AddPortDlg.h"
#include "settings/InstallSettings.h"
#include "settings/TagNames.h"

namespace {

std::vector<PortEntry> PortsOfSystem() {
    wchar_t thisComputer[] = L"";
    DWORD size = 0;
    DWORD count = 0;
    EnumPortsW(thisComputer, 2, nullptr, 0, &size, &count);
    std::vector<BYTE> buffer(size);
    count = 0;
    EnumPortsW(thisComputer, 2, buffer.data(), size, &size, &count);
    std::vector<PortEntry> entries;
    for (const PORT_INFO_2W& port : std::span(reinterpret_cast<const PORT_INFO_2W*>(buffer.data()), count)) {
        entries.push_back(
            {.name = port.pPortName, .description = port.pDescription == nullptr ? L"" : port.pDescription});
    }
    return entries;
}

}  // namespace

std::uint32_t AddPortService::DoRun() {
    if (!InstallSettings::GetInstance().GetBool(Tag::INSTALL_FROM_CONFIG) && page != nullptr) FillDrivers();
    ports = PortsOfSystem();
    if (page != nullptr) page->FillPortList(ports);
    return 0;
}

void AddPortService::FillDrivers() const {
    page->ClearDrivers();
    for (const MSI_APP& driver : DriverInfo::GetInstance().GetDrivers()) {
        if (driver.isPrinterDriver) page->AddDriver(driver);
    }
}
