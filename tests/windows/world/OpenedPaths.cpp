#include "tests/windows/world/OpenedPaths.h"

#include <string>
#include <utility>
#include <vector>

#include "framework/Handles.h"

namespace {

std::vector<std::pair<std::wstring, DWORD>> openedPaths;

HANDLE WINAPI NoteOpenedPath(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                             DWORD disposition, DWORD flags, HANDLE like) {
    openedPaths.emplace_back(path, flags);
    static const auto open =
        FindExport<decltype(&CreateFileW)>(GetModuleHandleW(L"kernel32.dll"), "CreateFileW");
    return open(path, access, share, security, disposition, flags, like);
}

}  // namespace

OpenedPaths::OpenedPaths() : opening("CreateFileW", &NoteOpenedPath) {
    openedPaths.clear();
}

DWORD OpenedPaths::FlagsOf(std::wstring_view end) {
    DWORD found = 0;
    for (const auto& [path, flags] : openedPaths) {
        if (path.ends_with(end)) found = flags;
    }
    return found;
}
