#include "CommonLib/SystemLibrary.h"

#include <array>

std::wstring GetSystemFolder() {
    std::array<wchar_t, MAX_PATH> folder{};
    const UINT length = GetSystemDirectoryW(folder.data(), folder.size());
    if (length == 0 || length >= folder.size()) return {};
    return {folder.data(), length};
}

Library LoadSystemLibrary(const std::wstring& name) {
    const std::wstring folder = GetSystemFolder();
    return folder.empty() ? Library() : Library(LoadLibraryW((folder + L"\\" + name).c_str()));
}

void RestrictLibrarySearch() {
    using SetDefaultDirectories = BOOL(WINAPI*)(DWORD);
    SetDllDirectoryW(L"");
    // Older systems have the function only with an update.
    const auto restrictSearch =
        FindExport<SetDefaultDirectories>(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories");
    if (restrictSearch != nullptr) restrictSearch(LOAD_LIBRARY_SEARCH_SYSTEM32);
}
