#include "CommonLib/TextFile.h"

#include <array>
#include <cstdio>
#include <memory>

namespace {

constexpr std::size_t bufferSize = 2048;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }  // NOLINT(cppcoreguidelines-owning-memory)
};

}  // namespace

int ReadTextPieces(const std::wstring& path, const std::function<void(std::string_view)>& takePiece) {
    std::FILE* opened = nullptr;
    const int error = _wfopen_s(&opened, path.c_str(), L"r");
    if (error != 0) return error;
    const std::unique_ptr<std::FILE, FileCloser> file(opened);
    std::array<char, bufferSize> buffer{};
    while (std::fgets(buffer.data(), buffer.size(), file.get()) != nullptr) takePiece(buffer.data());
    return 0;
}
