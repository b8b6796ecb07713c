// A viewer of help files that only records what it is asked for. Like the system's, it shows nothing where
// the file is missing. The record lies beside it and is its own path with ".calls" after it.

#include <windows.h>

#include <string>

#include "tests/fakes/TextLines.h"

namespace {

std::wstring recordPath;

}  // namespace

extern "C" __declspec(dllexport) HWND WINAPI
    HtmlHelpW(HWND owner, const wchar_t* file, UINT command, DWORD_PTR data) {
    const bool exists = GetFileAttributesW(file) != INVALID_FILE_ATTRIBUTES;
    AppendText(recordPath, JoinFields({file, std::to_wstring(command), std::to_wstring(data),
                                       exists ? L"shown" : L"missing"}));
    return exists ? owner : nullptr;
}

BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    wchar_t path[MAX_PATH]{};
    const DWORD length = GetModuleFileNameW(library, path, MAX_PATH);
    recordPath = std::wstring(path, length) + L".calls";
    return TRUE;
}
