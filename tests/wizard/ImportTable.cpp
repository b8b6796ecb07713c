#include "tests/wizard/ImportTable.h"

#include <cstddef>
#include <cwctype>

#include "framework/Handles.h"

namespace {

// The file as the system would lay it out in memory, with nothing of it run.
class MappedImage {
public:
    explicit MappedImage(const std::filesystem::path& file)
        : library(LoadLibraryExW(file.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES)) {}

    explicit operator bool() const { return static_cast<bool>(library); }

    template <class Type>
    const Type* At(std::size_t offset) const {
        return reinterpret_cast<const Type*>(reinterpret_cast<const unsigned char*>(library.get()) + offset);
    }
    // The directory of that kind, or null.
    template <class Type>
    const Type* Directory(std::size_t kind) const {
        const auto* const headers =
            At<IMAGE_NT_HEADERS>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
        const DWORD place = headers->OptionalHeader.DataDirectory[kind].VirtualAddress;
        return place == 0 ? nullptr : At<Type>(place);
    }
    std::wstring NameAt(DWORD place) const {
        std::wstring name;
        for (const char* letter = At<char>(place); *letter != '\0'; ++letter) {
            name += static_cast<wchar_t>(std::towlower(static_cast<wint_t>(*letter)));
        }
        return name;
    }

private:
    Library library;
};

// The part of the record of late imports that counts here.
struct LateImport {
    DWORD attributes;
    DWORD name;
    DWORD rest[6];
};

}  // namespace

std::set<std::wstring> ImportsOf(const std::filesystem::path& file, bool withLateOnes) {
    std::set<std::wstring> names;
    const MappedImage image(file);
    if (!image) return names;
    const auto* early = image.Directory<IMAGE_IMPORT_DESCRIPTOR>(IMAGE_DIRECTORY_ENTRY_IMPORT);
    for (; early != nullptr && early->Name != 0; ++early) names.insert(image.NameAt(early->Name));
    const auto* late = image.Directory<LateImport>(IMAGE_DIRECTORY_ENTRY_DELAY_IMPORT);
    for (; withLateOnes && late != nullptr && late->name != 0; ++late) names.insert(image.NameAt(late->name));
    return names;
}
