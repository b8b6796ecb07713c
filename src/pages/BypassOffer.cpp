#include "pages/BypassOffer.h"

// One printer driver that the package upgrades rules the way out, whatever stands before or after it.
bool IsPrinterSoftwareUpToDate(const DriverInfo& drivers) {
    bool upToDate = false;
    for (const MSI_APP& driver : drivers.GetDrivers()) {
        if (!driver.isPrinterDriver) continue;
        if (driver.upgradable) return false;
        upToDate = upToDate || driver.upToDate || driver.newerInstalled;
    }
    return upToDate;
}
