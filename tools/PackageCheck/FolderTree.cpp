#include "tools/PackageCheck/FolderTree.h"

#include <algorithm>
#include <fstream>
#include <system_error>
#include <utility>

#include "tools/PackageCheck/MsiFile.h"

namespace packagecheck {

namespace {

namespace fs = std::filesystem;

// No package has more files; a folder that holds more is not one.
constexpr std::size_t mostFiles = 500'000;

std::string Utf8PathOf(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

}  // namespace

fs::path PathOf(const std::string& text) {
    return {std::u8string(text.begin(), text.end())};
}

std::vector<TreeFile> FolderTree::List() const {
    std::vector<TreeFile> files;
    std::error_code error;
    fs::recursive_directory_iterator entry(root, fs::directory_options::skip_permission_denied, error);
    const fs::recursive_directory_iterator end;
    for (; !error && entry != end && files.size() < mostFiles; entry.increment(error)) {
        std::error_code lost;
        if (!entry->is_regular_file(lost)) continue;
        files.push_back({.path = Utf8PathOf(entry->path().lexically_relative(root))});
    }
    return files;
}

fs::path FolderTree::PathOf(const std::string& path) const {
    return root / packagecheck::PathOf(path);
}

std::optional<std::string> FolderTree::Read(const std::string& path, std::size_t most) const {
    std::ifstream file(PathOf(path), std::ios::binary);
    if (!file) return std::nullopt;
    std::string bytes;
    constexpr std::size_t step = 1U << 16U;
    while (file && bytes.size() < most) {
        const std::size_t known = bytes.size();
        bytes.resize(std::min(known + step, most));
        file.read(bytes.data() + known, static_cast<std::streamsize>(bytes.size() - known));
        bytes.resize(known + static_cast<std::size_t>(file.gcount()));
    }
    if (file.bad()) return std::nullopt;
    return bytes;
}

bool FolderTree::Write(const std::string& path, const std::string& bytes) const {
    const fs::path target = PathOf(path);
    fs::path unfinished = target;
    unfinished += ".unfinished";
    std::error_code error;
    {
        std::ofstream file(unfinished, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        file.close();
        if (!file) error = std::make_error_code(std::errc::io_error);
    }
    if (!error) fs::permissions(unfinished, fs::status(target, error).permissions(), error);
    if (!error) fs::rename(unfinished, target, error);
    if (!error) return true;
    std::error_code lost;
    fs::remove(unfinished, lost);
    return false;
}

MsiReading FolderTree::ReadMsi(const std::string& path) const {
    MsiReading reading;
    if (const auto database = OpenMsi(PathOf(path), reading.error))
        reading.contents = ReadContents(*database);
    return reading;
}

}  // namespace packagecheck
