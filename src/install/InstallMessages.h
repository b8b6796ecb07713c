// What the MSI library says while it works, and the boxes for its error codes.
#pragma once

#include <cstdint>

#include "install/IInstallProgress.h"
#include "settings/InstallSettings.h"

// Where messages go from now on; null for nowhere. The library's callback knows no object, so there is one
// receiver at a time, which must outlive the calls of the library.
void DeliverMessagesTo(IInstallProgress* receiver);

// The library's callback, on the library's thread. Takes a message document and returns the answer to it.
std::int32_t OnInstallMessage(const wchar_t* message);

// Has the page show the box for an error code and waits for it, unless this is the optional run, which
// OPTIONAL_INSTALL says, or there is no page. Returns true if the error stops the run.
bool ShowErrorDialog(IInstallProgress* page, const InstallSettings& settings, std::uint32_t code);
