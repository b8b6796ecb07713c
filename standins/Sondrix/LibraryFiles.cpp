#include "standins/Sondrix/LibraryFiles.h"

#include <windows.h>

#include <string>

#include "CommonLib/SystemText.h"
#include "CommonLib/TextFile.h"

namespace sondrix {

namespace {

// Longer files hold nothing that is wanted here.
constexpr std::size_t longestFile = std::size_t{64} * 1024;

// The file of that name beside this library.
std::wstring PathBeside(const std::wstring& name) {
    HMODULE self = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&PathBeside), &self);
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(self, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(2 * path.size());
    }
    return path.substr(0, path.rfind(L'\\') + 1) + name;
}

std::string ReadFileBeside(const std::wstring& name) {
    std::string text;
    ReadTextPieces(PathBeside(name), [&](std::string_view piece) {
        if (text.size() + piece.size() <= longestFile) text += piece;
    });
    return text;
}

}  // namespace

discovery::Bytes ReadCommunity() {
    const std::string text = ReadFileBeside(L"Community.txt");
    const std::string line = text.substr(0, text.find_first_of("\r\n"));
    return line.empty() ? "public" : line;
}

discovery::OemTable ReadMakers() {
    return discovery::ReadOemTable(Utf8ToWide(ReadFileBeside(L"OemBytes.txt")));
}

}  // namespace sondrix
