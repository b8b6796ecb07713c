#include "wizard/FolderCleanUp.h"

#include <windows.h>

#include "CommonLib/Files.h"
#include "CommonLib/ProcessStart.h"

bool RemoveFolder(const std::wstring& folder) {
    constexpr DWORD retryIntervalInMilliseconds = 2000;
    // By design: the folder stands without quotes.
    const std::wstring parameters = L"CMD /c rmdir " + folder + L" /s /q";
    for (;;) {
        if (!RunElevated(L"cmd.exe", parameters)) return false;
        if (!PathExists(folder)) return true;
        Sleep(retryIntervalInMilliseconds);
    }
}
