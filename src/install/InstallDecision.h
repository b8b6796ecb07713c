// The decisions of an install run as plain data. Functions of their arguments, for any thread.
#pragma once

#include <cstdint>
#include <string_view>

#include "catalogue/MSI_APP.h"
#include "catalogue/PackageStatus.h"
#include "settings/TextKeys.h"

enum class InstallAction {
    ReportNewer,        // something newer is installed: report it and go on with the next record
    RunDependentsOnly,  // leave the package out and run its dependents
    ForceReinstall,     // run, the package itself handles the reinstallation
    MinorUpgrade,       // run with the reinstall element in the command document
    AskAgain            // ask the library afresh: skip what is up to date by now, otherwise run
};

// Returns what is to be done with a record, by its state when the catalogue was built.
InstallAction DecideInstall(const MSI_APP& app);

// Returns true if the run reports that something newer is installed. A record with dependents reports it too
// and is then decided like any other.
bool ReportsNewer(const MSI_APP& app);

enum class InstallOutcome { Done, Cancelled, RebootRequired, Failed, NotSupported };

// Returns what a return code of the library means. systemBefore60 is true on a system older than version 6.0,
// where a scan driver that fails is not supported rather than failed.
InstallOutcome ReadReturnCode(std::uint32_t code, bool isScanDriver, bool systemBefore60);

// Returns the status of a record for an outcome; a success over an older version counts as an update.
PackageStatus StatusFor(InstallOutcome outcome, const MSI_APP& app);

// The keys of the localised texts of an error box, and whether the error stops the run. Keys are empty for
// codes of a cancelled run; they point to constant texts.
struct ErrorDialogTexts {
    TextId titleKey;
    TextId textKey;
    bool stopsRun = false;
};

// Returns what the error box for a return code shows.
ErrorDialogTexts ErrorDialogFor(std::uint32_t code);
