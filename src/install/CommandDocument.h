// The document that says what a package's installation is to do.
#pragma once

#include <string>

#include "catalogue/MSI_APP.h"
#include "printer/PrinterDescription.h"
#include "settings/InstallSettings.h"

struct CommandValues {
    std::wstring printerInfo;  // one PRINTER_INFO element, with which the document begins
    std::wstring targetDir;
    std::wstring language;
    std::wstring friendlyName;
    std::wstring infocenterShortcut;
    std::wstring infocenterLink;
    bool reinstall = false;
};

// What is the same for all packages of a run.
struct RunPlace {
    std::wstring targetDir;
    std::wstring language;
};

// The values for a package as the settings are by now. For a driver it describes the printer, which leaves
// traces for the next one. Reads EXACT_INFOCENTER_LINK, INFOCENTER_SHORTCUT, INSTALL_FROM_CONFIG and
// PRINTER_NAME.
CommandValues MakeCommandValues(const MSI_APP& record, PrinterDescription& printers,
                                const InstallSettings& settings, const RunPlace& place, bool reinstall);

// Returns the command document for the installation of one package. May run on any thread.
std::wstring BuildCommandDocument(const CommandValues& values);
