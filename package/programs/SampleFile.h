// Files that the programs of the sample leave behind.
#pragma once

#include <windows.h>

#include <string>

// Writes a text as UTF-8 into a file, at its end or in place of what it held. Returns whether all of it was
// written.
inline bool WriteSampleFile(const std::wstring& path, const std::wstring& text, bool append) {
    const HANDLE file =
        CreateFileW(path.c_str(), append ? FILE_APPEND_DATA : GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                    append ? OPEN_ALWAYS : CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    const int units = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), units, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.c_str(), units, bytes.data(), size, nullptr, nullptr);
    DWORD written = 0;
    const bool ok = WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0;
    CloseHandle(file);
    return ok && written == bytes.size();
}
