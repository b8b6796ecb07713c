#include "framework/SystemLibrary.h"

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

Library LoadPackageLibrary(const std::wstring& path) {
    // A library of the system that lies beside the program as well is so taken from the system where
    // possible.
    Library library(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
    if (!library) {
        library.reset(LoadLibraryExW(path.c_str(), nullptr,
                                     LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32));
    }
    // Older systems know these ways of searching only with an update.
    if (!library && GetLastError() == ERROR_INVALID_PARAMETER) {
        library.reset(LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    }
    return library;
}

void RestrictLibrarySearch() {
    using SetDefaultDirectories = BOOL(WINAPI*)(DWORD);
    SetDllDirectoryW(L"");
    // Older systems have the function only with an update.
    const auto restrictSearch =
        FindExport<SetDefaultDirectories>(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories");
    if (restrictSearch != nullptr) restrictSearch(LOAD_LIBRARY_SEARCH_SYSTEM32);
}
