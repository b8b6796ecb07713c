#include "tests/windows/world/ScratchFolder.h"

#include <windows.h>

#include <fstream>
#include <iterator>
#include <system_error>

namespace fs = std::filesystem;

ScratchFolder::ScratchFolder() {
    static int count = 0;
    const std::wstring name = L"kestrune-test-" + std::to_wstring(GetCurrentProcessId()) + L"-";
    path = fs::temp_directory_path() / (name + std::to_wstring(++count));
    fs::remove_all(path);
    fs::create_directories(path);
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
}

void WriteBytes(const fs::path& path, std::string_view bytes) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string ReadBytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string ToUtf16Bytes(std::wstring_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}
