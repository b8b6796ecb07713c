#include "CommonLib/SystemText.h"

#include <windows.h>

#include <cstdlib>

std::wstring ExpandEnvironment(const std::wstring& text) {
    const DWORD size = ExpandEnvironmentStringsW(text.c_str(), nullptr, 0);
    if (size == 0) return {};
    std::wstring expanded(size, L'\0');
    const DWORD written = ExpandEnvironmentStringsW(text.c_str(), expanded.data(), size);
    if (written == 0 || written > size) return {};
    expanded.resize(written - 1);
    return expanded;
}

std::wstring Utf8ToWide(std::string_view bytes) {
    return CodePageToWide(CP_UTF8, bytes);
}

std::wstring CodePageToWide(std::uint32_t codePage, std::string_view bytes) {
    const auto length = static_cast<int>(bytes.size());
    // A byte never yields more than one code unit.
    std::wstring text(bytes.size(), L'\0');
    const int written = MultiByteToWideChar(codePage, 0, bytes.data(), length, text.data(), length);
    text.resize(static_cast<std::size_t>(written));
    return text;
}

std::wstring NarrowToWide(const char* text, std::size_t length) {
    if (text == nullptr || length == 0) return {};
    std::wstring wide(length + 1, L'\0');
    std::size_t converted = 0;
    if (mbstowcs_s(&converted, wide.data(), wide.size(), text, length) != 0) return {};
    wide.resize(converted - 1);
    return wide;
}
