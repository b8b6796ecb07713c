// One run of the installer and its cancel.
#pragma once

#include <windows.h>

#include <functional>

#include "CommonLib/PackageLibraries.h"

namespace brevanto {

// Runs one operation of Windows Installer with no window of the installer's own, its messages handed to the
// callback (which may be null) and its log kept. Returns what the operation returns, or 1618 while another
// run is on. When it returns the callback has been called for the last time.
UINT RunInstaller(InstallProgressCallback callback, const std::function<UINT()>& operation);

// Makes the run that is on answer the installer's next message with a cancel. It does not outlast that run.
void CancelRun();

}  // namespace brevanto
