#include "standins/network/SystemNames.h"

#include <windows.h>

#include <tuple>

#include "framework/Handles.h"

namespace discovery {

bool DoesSystemResolveLocalNames() {
    using Version = std::tuple<DWORD, DWORD, DWORD>;
    constexpr Version first{10, 0, 16299};
    using RtlGetVersionFunction = LONG(WINAPI*)(OSVERSIONINFOW*);
    // By design: unlike its siblings this call does not depend on what the program's manifest declares.
    const auto readVersion =
        FindExport<RtlGetVersionFunction>(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion");
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (readVersion == nullptr || readVersion(&version) != 0) return false;
    return Version{version.dwMajorVersion, version.dwMinorVersion, version.dwBuildNumber} >= first;
}

}  // namespace discovery
