#include "tests/wizard/FolderLink.h"

#include <windows.h>

#include <stdexcept>
#include <string>
#include <utility>

#include "framework/Handles.h"
#include "tests/wizard/Waiting.h"

namespace {

namespace fs = std::filesystem;

bool IsLink(const fs::path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

std::wstring UnixPath(const fs::path& path) {
    using Translate = char*(CDECL*)(const wchar_t*);
    const auto translate =
        FindExport<Translate>(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name");
    if (translate == nullptr) return {};
    char* const text = translate(path.c_str());
    std::wstring translated = text == nullptr ? std::wstring() : fs::u8path(text).wstring();
    HeapFree(GetProcessHeap(), 0, text);
    return translated;
}

// A Wine that has no links of its own shows those of the system that it runs on.
// What it names as handles of such a process are not this process's to close.
void RunOnHost(const std::wstring& program, const std::wstring& arguments) {
    std::wstring commandLine = program + L" " + arguments;
    STARTUPINFOW startup{.cb = sizeof(STARTUPINFOW)};
    PROCESS_INFORMATION information{};
    CreateProcessW((L"Z:\\bin\\" + program).c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                   nullptr, &startup, &information);
}

std::wstring Quoted(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

}  // namespace

FolderLink::FolderLink(fs::path path, const fs::path& folder) : link(std::move(path)) {
    CreateSymbolicLinkW(link.c_str(), folder.c_str(), SYMBOLIC_LINK_FLAG_DIRECTORY);
    if (IsLink(link)) return;
    RunOnHost(L"ln", L"-s " + Quoted(UnixPath(folder)) + L" " + Quoted(UnixPath(link)));
    if (!WaitUntil([this] { return IsLink(link); })) throw std::runtime_error("no link was made");
}

FolderLink::~FolderLink() {
    const std::wstring pathOfHost = UnixPath(link);
    if (pathOfHost.empty()) {
        RemoveDirectoryW(link.c_str());
        return;
    }
    RunOnHost(L"rm", L"-f " + Quoted(pathOfHost));
    WaitUntil([this] { return !IsLink(link); });
}
