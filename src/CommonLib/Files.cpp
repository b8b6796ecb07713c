#include "CommonLib/Files.h"

#include <windows.h>

#include <shlobj.h>
#include <shlwapi.h>

#include <array>

#include "framework/CFileFind.h"
#include "framework/Handles.h"

namespace {

bool CanOpen(const std::wstring& path, DWORD shareMode) {
    return static_cast<bool>(FileHandle(CreateFileW(path.c_str(), GENERIC_READ, shareMode, nullptr,
                                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)));
}

}  // namespace

std::wstring GetExePath() {
    // No path of the system is longer.
    constexpr std::size_t longestPath = 1U << 15;
    std::wstring path;
    DWORD length = 0;
    // A path that does not fit is cut off at the buffer's end.
    while (length == path.size() && path.size() < longestPath) {
        path.resize(path.size() + MAX_PATH);
        length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    }
    path.resize(length);
    return path;
}

std::wstring GetExeDirectory() {
    const std::wstring path = GetExePath();
    return path.substr(0, path.find_last_of(L'\\'));
}

std::wstring GetSetupDirectory() {
    const std::wstring path = GetExeDirectory();
    return path.substr(0, path.find_last_of(L'\\'));
}

std::wstring GetPicturePath(const std::wstring& fileName) {
    return GetSetupDirectory() + L"\\res\\images\\" + fileName;
}

std::size_t FindFiles(const std::wstring& folder, std::vector<std::wstring>& paths,
                      const std::wstring& extension, const std::wstring& nameFilter) {
    CFileFind finder;
    bool more = finder.FindFile(folder + (extension.empty() ? L"*.*" : L"*." + extension));
    while (more) {
        more = finder.FindNextFile();
        if (finder.IsDots()) continue;
        // The name is sought in the filter and not the other way round: a filter lists the files it stands
        // for.
        if (!nameFilter.empty() && nameFilter.find(finder.GetFileName()) == std::wstring::npos) continue;
        paths.push_back(finder.GetFilePath());
    }
    return paths.size();
}

bool CreateFolderPath(const std::wstring& path) {
    if (path.empty()) return false;
    const int code = SHCreateDirectoryExW(nullptr, path.c_str(), nullptr);
    return code == ERROR_SUCCESS || code == ERROR_ALREADY_EXISTS || code == ERROR_FILE_EXISTS;
}

bool PathExists(const std::wstring& path) {
    return PathFileExistsW(path.c_str()) != FALSE;
}

bool IsFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool IsFolderLink(const std::wstring& path) {
    constexpr DWORD folderLink = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & folderLink) == folderLink;
}

bool CanBeRead(const std::wstring& path) {
    return CanOpen(path, FILE_SHARE_READ);
}

bool CanBeReadAlone(const std::wstring& path) {
    return CanOpen(path, 0);
}

bool CopyFileTo(const std::wstring& target, const std::wstring& source) {
    return CopyFileW(source.c_str(), target.c_str(), FALSE) != FALSE;
}

std::wstring GetTemporaryFolder() {
    std::array<wchar_t, MAX_PATH + 1> buffer{};
    const DWORD length = GetTempPathW(buffer.size(), buffer.data());
    return {buffer.data(), length < buffer.size() ? length : 0};
}

std::wstring GetCommonDataFolder() {
    std::array<wchar_t, MAX_PATH> buffer{};
    SHGetSpecialFolderPathW(nullptr, buffer.data(), CSIDL_COMMON_APPDATA, FALSE);
    return buffer.data();
}
