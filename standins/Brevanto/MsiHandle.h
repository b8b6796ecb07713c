// Owner of handles of Windows Installer.
#pragma once

#include <windows.h>

#include <msi.h>

#include "framework/Handles.h"

namespace brevanto {

struct MsiHandleKind {
    using Handle = MSIHANDLE;
    static MSIHANDLE invalid() noexcept { return 0; }
    static void close(MSIHANDLE handle) { MsiCloseHandle(handle); }
};

// Owns a handle of Windows Installer: a database, a view, a record.
using MsiHandle = HandleOwner<MsiHandleKind>;

}  // namespace brevanto
