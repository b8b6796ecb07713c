// A library that leaves a file beside itself when it is loaded: it is its own path with ".loaded" after it.

#include <windows.h>

#include <string>

#include "tests/fakes/TextLines.h"

extern "C" __declspec(dllexport) int NeighbourAnswer() {
    return 1;
}

BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    wchar_t path[MAX_PATH]{};
    const DWORD length = GetModuleFileNameW(library, path, MAX_PATH);
    AppendText(std::wstring(path, length) + L".loaded", L"loaded");
    return TRUE;
}
