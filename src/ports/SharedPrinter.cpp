#include "ports/SharedPrinter.h"

#include <windows.h>

#include <shlwapi.h>
#include <winnetwk.h>

#include <array>

#include "framework/Handles.h"
#include "framework/SystemLibrary.h"

bool IsSharedPrinter(const std::wstring& path) {
    if (PathIsUNCServerShareW(path.c_str()) == FALSE) return false;
    const Library network = LoadSystemLibrary(L"mpr.dll");
    if (!network) return false;
    using GetResourceInformation = DWORD(WINAPI*)(LPNETRESOURCEW, LPVOID, LPDWORD, LPWSTR*);
    const auto getInformation =
        FindExport<GetResourceInformation>(network.get(), "WNetGetResourceInformationW");
    if (getInformation == nullptr) return false;

    std::wstring remoteName = path;
    NETRESOURCEW question{.dwScope = RESOURCE_GLOBALNET};
    question.lpRemoteName = remoteName.data();
    // By design: a share whose answer is longer does not count.
    alignas(NETRESOURCEW) std::array<BYTE, 261> buffer{};
    DWORD size = buffer.size();
    LPWSTR rest = nullptr;
    if (getInformation(&question, buffer.data(), &size, &rest) != NO_ERROR) return false;
    const auto& answer = *reinterpret_cast<const NETRESOURCEW*>(buffer.data());
    return answer.dwType == RESOURCETYPE_PRINT && answer.lpRemoteName != nullptr &&
           path == answer.lpRemoteName;
}
