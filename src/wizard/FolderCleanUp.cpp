#include "wizard/FolderCleanUp.h"

#include <windows.h>

#include <winternl.h>

#include <utility>
#include <vector>

#include "CommonLib/Logger.h"
#include "framework/Handles.h"

namespace {

constexpr ACCESS_MASK removalAccess =
    DELETE | SYNCHRONIZE | FILE_LIST_DIRECTORY | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES;
constexpr DWORD everyShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

struct Entry {
    std::wstring name;
    bool isLink;
};

// An open folder, and what in it is still to be removed.
struct FolderOnTheWay {
    FileHandle handle;
    std::vector<Entry> entries;
};

// The link itself is opened where the path names one.
FileHandle OpenByPath(const std::wstring& path) {
    return FileHandle(CreateFileW(path.c_str(), removalAccess, everyShare, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

// Opens an entry below its folder's handle and not by its path, on which a link could be put in between.
FileHandle OpenBelow(const FileHandle& folder, std::wstring& name) {
    const auto bytes = static_cast<USHORT>(name.size() * sizeof(wchar_t));
    UNICODE_STRING text{.Length = bytes, .MaximumLength = bytes, .Buffer = name.data()};
    OBJECT_ATTRIBUTES attributes{
        .Length = sizeof(attributes), .RootDirectory = folder.get(), .ObjectName = &text};
    IO_STATUS_BLOCK status{};
    HANDLE handle = INVALID_HANDLE_VALUE;
    const NTSTATUS result =
        NtOpenFile(&handle, removalAccess, &attributes, &status, everyShare,
                   FILE_OPEN_REPARSE_POINT | FILE_OPEN_FOR_BACKUP_INTENT | FILE_SYNCHRONOUS_IO_NONALERT);
    return NT_SUCCESS(result) ? FileHandle(handle) : FileHandle();
}

bool IsLink(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

DWORD AttributesOf(const FileHandle& entry) {
    FILE_BASIC_INFO information{};
    GetFileInformationByHandleEx(entry.get(), FileBasicInfo, &information, sizeof(information));
    return information.FileAttributes;
}

std::vector<Entry> EntriesOf(const FileHandle& folder) {
    constexpr std::size_t roomInBytes = 1 << 16;
    std::vector<Entry> entries;
    std::vector<LONGLONG> buffer(roomInBytes / sizeof(LONGLONG));
    while (GetFileInformationByHandleEx(folder.get(), FileIdBothDirectoryInfo, buffer.data(), roomInBytes) !=
           FALSE) {
        const auto* place = reinterpret_cast<const unsigned char*>(buffer.data());
        for (DWORD step = 1; step != 0; place += step) {
            const auto* const entry = reinterpret_cast<const FILE_ID_BOTH_DIR_INFO*>(place);
            std::wstring name(entry->FileName, entry->FileNameLength / sizeof(wchar_t));
            if (name != L"." && name != L"..") {
                entries.push_back({.name = std::move(name), .isLink = IsLink(entry->FileAttributes)});
            }
            step = entry->NextEntryOffset;
        }
    }
    return entries;
}

// The entry goes when its handle is closed. A read-only one does not before it is made an ordinary one.
void Remove(const FileHandle& entry) {
    FILE_BASIC_INFO ordinary{};
    ordinary.FileAttributes = FILE_ATTRIBUTE_NORMAL;
    if ((AttributesOf(entry) & FILE_ATTRIBUTE_READONLY) != 0) {
        SetFileInformationByHandle(entry.get(), FileBasicInfo, &ordinary, sizeof(ordinary));
    }
    FILE_DISPOSITION_INFO removal{.DeleteFile = TRUE};
    SetFileInformationByHandle(entry.get(), FileDispositionInfo, &removal, sizeof(removal));
}

// The folders on the way down are a list, so that no depth of a tree overflows the stack. An entry that
// cannot go keeps the folders above it, and the rest still goes.
class TreeRemoval {
public:
    void Run(FileHandle top, bool isLink) {
        Take(std::move(top), isLink);
        while (!way.empty()) Step();
    }

private:
    // Removes the entry, or goes down into it. A link of which the system has opened the other end is left.
    void Take(FileHandle entry, bool isLink) {
        const DWORD attributes = AttributesOf(entry);
        if (isLink && !IsLink(attributes)) return;
        if (IsLink(attributes) || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            Remove(entry);
            return;
        }
        std::vector<Entry> entries = EntriesOf(entry);
        way.push_back({.handle = std::move(entry), .entries = std::move(entries)});
    }
    void Step() {
        FolderOnTheWay& last = way.back();
        if (last.entries.empty()) {
            Remove(last.handle);
            way.pop_back();
            return;
        }
        Entry next = std::move(last.entries.back());
        last.entries.pop_back();
        if (FileHandle handle = OpenBelow(last.handle, next.name)) Take(std::move(handle), next.isLink);
    }

    std::vector<FolderOnTheWay> way;
};

}  // namespace

bool RemoveFolder(const std::wstring& folder) {
    constexpr int tries = 5;
    constexpr DWORD pauseInMilliseconds = 500;
    for (int count = 0;; ++count) {
        const DWORD attributes = GetFileAttributesW(folder.c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            return true;
        if (count == tries) break;
        if (count > 0) Sleep(pauseInMilliseconds);
        if (FileHandle top = OpenByPath(folder)) TreeRemoval().Run(std::move(top), IsLink(attributes));
    }
    LogBasic(L"The folder " + folder + L" cannot be removed", LogLevel::Error);
    return false;
}
