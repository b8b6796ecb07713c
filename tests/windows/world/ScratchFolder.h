// Files and folders that a test makes for itself.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// A new, empty folder of the temporary folder, which goes with all in it at the end of this object's life.
class ScratchFolder {
public:
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    // The path of an entry, and of the folder itself with its closing backslash.
    std::wstring operator/(const std::wstring& name) const { return Path() + name; }
    std::wstring Path() const { return path.wstring() + L"\\"; }

private:
    std::filesystem::path path;
};

// Writes the bytes, with the folders that lead to the file.
void WriteBytes(const std::filesystem::path& path, std::string_view bytes = {});
std::string ReadBytes(const std::filesystem::path& path);

// The text as UTF-16 with the low byte first.
std::string ToUtf16Bytes(std::wstring_view text);
