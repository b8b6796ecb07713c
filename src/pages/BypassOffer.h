// When the wizard offers the way past what is installed already.
#pragma once

#include "catalogue/DriverInfo.h"

// Returns true if the package has nothing newer than the printer drivers on the system. May run on any
// thread.
bool IsPrinterSoftwareUpToDate(const DriverInfo& drivers);
