#include "tools/Rollout/LogTail.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "framework/Handles.h"

namespace rollout {
namespace {

// In bytes. What is beyond comes with the next question.
constexpr std::uint64_t mostAtOnce = 1u << 24;

// Whoever writes the log must never find it closed to him.
FileHandle OpenShared(const std::wstring& path) {
    return FileHandle(CreateFileW(path.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::uint64_t SizeOf(const FileHandle& file) {
    LARGE_INTEGER size{};
    return file && GetFileSizeEx(file.get(), &size) != FALSE ? static_cast<std::uint64_t>(size.QuadPart) : 0;
}

}  // namespace

LogTail::LogTail(std::wstring filePath) : path(std::move(filePath)), position(SizeOf(OpenShared(path))) {}

std::string LogTail::ReadNew() {
    const FileHandle file = OpenShared(path);
    const std::uint64_t size = SizeOf(file);
    if (size < position) position = 0;
    std::string bytes(static_cast<std::size_t>(std::min(size - position, mostAtOnce)), '\0');
    if (bytes.empty()) return bytes;
    const LARGE_INTEGER start{.QuadPart = static_cast<LONGLONG>(position)};
    DWORD count = 0;
    if (SetFilePointerEx(file.get(), start, nullptr, FILE_BEGIN) == FALSE ||
        ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) == FALSE) {
        count = 0;
    }
    bytes.resize(count);
    position += count;
    return bytes;
}

}  // namespace rollout
