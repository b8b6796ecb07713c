#include "tests/fakes/TextLines.h"

#include <windows.h>

#include "framework/Handles.h"

namespace {

constexpr std::wstring_view plainSigns = L"\t\r\n\\";
constexpr std::wstring_view escapedSigns = L"trn\\";

std::vector<std::wstring> SplitFields(std::wstring_view line) {
    std::vector<std::wstring> fields;
    for (std::size_t tab = line.find(L'\t'); tab != std::wstring_view::npos; tab = line.find(L'\t')) {
        fields.push_back(UnescapeField(line.substr(0, tab)));
        line.remove_prefix(tab + 1);
    }
    fields.push_back(UnescapeField(line));
    return fields;
}

}  // namespace

std::wstring EscapeField(std::wstring_view text) {
    std::wstring escaped;
    for (const wchar_t sign : text) {
        const std::size_t place = plainSigns.find(sign);
        if (place != std::wstring_view::npos) escaped += L'\\';
        escaped += place == std::wstring_view::npos ? sign : escapedSigns[place];
    }
    return escaped;
}

std::wstring UnescapeField(std::wstring_view text) {
    std::wstring plain;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const bool escaped = text[place] == L'\\' && place + 1 < text.size();
        plain += escaped ? plainSigns.at(escapedSigns.find(text[++place])) : text[place];
    }
    return plain;
}

std::wstring JoinFields(const std::vector<std::wstring>& fields) {
    std::wstring line;
    for (const std::wstring& field : fields) line += (line.empty() ? L"" : L"\t") + EscapeField(field);
    return line + L"\n";
}

std::uint32_t ReadNumber(const std::wstring& field) {
    return static_cast<std::uint32_t>(std::stoul(field));
}

std::wstring ReadText(const std::wstring& path) {
    const FileHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return {};
    std::wstring text(GetFileSize(file.get(), nullptr) / sizeof(wchar_t), L'\0');
    DWORD read = 0;
    const DWORD size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (ReadFile(file.get(), text.data(), size, &read, nullptr) == FALSE) read = 0;
    text.resize(read / sizeof(wchar_t));
    return text;
}

std::vector<std::vector<std::wstring>> ReadLines(const std::wstring& path) {
    const std::wstring text = ReadText(path);
    std::vector<std::vector<std::wstring>> lines;
    std::size_t start = 0;
    for (std::size_t end = text.find(L'\n'); end != std::wstring::npos; end = text.find(L'\n', start)) {
        lines.push_back(SplitFields(std::wstring_view(text).substr(start, end - start)));
        start = end + 1;
    }
    return lines;
}

bool AppendText(const std::wstring& path, std::wstring_view text) {
    const FileHandle file(CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    return file && WriteFile(file.get(), text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)),
                             &written, nullptr) != FALSE;
}
