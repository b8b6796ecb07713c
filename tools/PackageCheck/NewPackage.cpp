#include "tools/PackageCheck/NewPackage.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <random>
#include <string_view>
#include <system_error>

#include "CommonLib/Utf8.h"
#include "tools/PackageCheck/StarterFiles.h"

namespace packagecheck {

namespace {

namespace fs = std::filesystem;

// Stands for a code that no other package has.
constexpr std::string_view codeMark = "{NEW-CODE}";

std::string NewCode() {
    static std::random_device source;
    std::array<unsigned, 4> words{};
    for (unsigned& word : words) word = source();
    // The version and the variant of a random identifier.
    words[1] = (words[1] & 0xFFFF0FFFU) | 0x4000U;
    words[2] = (words[2] & 0x3FFFFFFFU) | 0x80000000U;
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "{%08X-%04X-%04X-%04X-%04X%08X}", words[0], words[1] >> 16U,
                  words[1] & 0xFFFFU, words[2] >> 16U, words[2] & 0xFFFFU, words[3]);
    return text.data();
}

std::string WithNewCodes(std::string text) {
    for (std::size_t mark = text.find(codeMark); mark != std::string::npos; mark = text.find(codeMark, mark))
        text.replace(mark, codeMark.size(), NewCode());
    return text;
}

// A licence as CODE_PAGE of its language, 1252, has it. The letters of both languages are the same there as
// their numbers.
std::string AsLicence(std::string_view utf8) {
    std::string text;
    for (const wchar_t letter : FromUtf8(utf8)) {
        if (letter == L'\n') text += '\r';
        text += static_cast<char>(letter);
    }
    return text;
}

std::string BytesOf(const StarterFile& file) {
    if (file.path.starts_with("package/Notices/")) return AsLicence(file.bytes);
    return file.path.ends_with(".wxs") ? WithNewCodes(std::string(file.bytes)) : std::string(file.bytes);
}

bool Lay(const fs::path& folder, const StarterFile& file) {
    const fs::path path = folder / file.path;
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    const std::string bytes = BytesOf(file);
    {
        std::ofstream stream(path, std::ios::binary);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        stream.close();
        if (!stream) return false;
    }
    if (file.path.ends_with(".sh"))
        fs::permissions(path, fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec,
                        fs::perm_options::add, error);
    return true;
}

}  // namespace

bool LayOutNewPackage(const fs::path& folder, std::string& complaint) {
    std::error_code error;
    fs::create_directories(folder, error);
    const bool isEmpty = fs::is_empty(folder, error);
    if (error || !fs::is_directory(folder, error)) {
        complaint = "the folder cannot be made";
        return false;
    }
    if (!isEmpty) {
        complaint = "the folder holds something already";
        return false;
    }
    for (const StarterFile& file : StarterFiles()) {
        if (Lay(folder, file)) continue;
        complaint = std::string(file.path) + " cannot be written";
        return false;
    }
    return true;
}

}  // namespace packagecheck
