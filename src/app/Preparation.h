// What the wizard settles before its first page, apart from the system that it runs on.
#pragma once

#include "printer/ApplyChoice.h"
#include "printer/PrinterChoice.h"
#include "settings/InstallSettings.h"

// Takes the printers of a predefined configuration, which was laid over the settings before. Reads DEVICE;
// writes INSTALL_FROM_CONFIG.
void TakePredefinedPrinters(InstallSettings& settings);

// Makes the printer of the command line count where one is named and the package looks for printers. Reads
// HIDE_DISCOVERY.
void TakePrinterOfCommandLine(const NetworkAddress& printer, const ChoiceTargets& targets);

// Returns true for a silent run that ends before it begins: it needs a printer from the command line, or
// discovery switched off. Reads HIDE_DISCOVERY and SILENT_INSTALL.
bool LacksPrinter(const InstallSettings& settings, const NetworkAddress& printer);
