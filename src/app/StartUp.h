// What happens between the command line and the first page.
#pragma once

#include "app/Collaborators.h"
#include "printer/PrinterChoice.h"

// The printer that the command line names, if any.
NetworkAddress PrinterNamedIn(const CmdLineHelper& commandLine);

// Merges the user's settings, builds the catalogues and settles the tags that the chain reads. Returns
// whether the run is silent.
//
// Reads INSTALL_FROM_CONFIG and SILENT_INSTALL; writes OPTIONAL_INSTALL.
bool InitializeWizard(const Collaborators& shared);
