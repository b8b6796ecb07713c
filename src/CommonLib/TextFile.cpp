#include "CommonLib/TextFile.h"

#include <share.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>

namespace {

constexpr std::size_t bufferSize = 2048;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }  // NOLINT(cppcoreguidelines-owning-memory)
};

}  // namespace

int ReadTextPieces(const std::wstring& path, const std::function<void(std::string_view)>& takePiece) {
    // An editor or a virus scanner may have the file open, also to write it.
    const std::unique_ptr<std::FILE, FileCloser> file(_wfsopen(path.c_str(), L"r", _SH_DENYNO));
    if (!file) return errno;
    std::array<char, bufferSize> buffer{};
    while (std::fgets(buffer.data(), buffer.size(), file.get()) != nullptr) takePiece(buffer.data());
    return 0;
}
