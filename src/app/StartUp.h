// What happens between the command line and the first page.
#pragma once

#include "app/Collaborators.h"

// Merges the user's settings, builds the catalogues and settles the tags that the chain reads. Returns
// whether the run is silent.
//
// Reads DEVICE, HIDE_DISCOVERY, INSTALL_FROM_CONFIG and SILENT_INSTALL; writes INSTALL_FROM_CONFIG and
// OPTIONAL_INSTALL.
bool InitializeWizard(const Collaborators& shared);
