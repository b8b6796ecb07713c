#include "tests/windows/world/PatchedImport.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace {

template <class Type>
Type* At(DWORD_PTR offset) {
    return reinterpret_cast<Type*>(reinterpret_cast<unsigned char*>(GetModuleHandleW(nullptr)) + offset);
}

const IMAGE_IMPORT_DESCRIPTOR* Imports() {
    const auto* const headers = At<IMAGE_NT_HEADERS>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
    return At<IMAGE_IMPORT_DESCRIPTOR>(
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
}

void** FindIn(const IMAGE_IMPORT_DESCRIPTOR& library, std::string_view function) {
    const auto* name = At<IMAGE_THUNK_DATA>(library.OriginalFirstThunk);
    auto* address = At<IMAGE_THUNK_DATA>(library.FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++address) {
        if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
        const char* const found = reinterpret_cast<const char*>(
            At<IMAGE_IMPORT_BY_NAME>(static_cast<DWORD_PTR>(name->u1.AddressOfData))->Name);
        if (function == found) return reinterpret_cast<void**>(&address->u1.Function);
    }
    return nullptr;
}

void** FindPlace(const char* function) {
    for (const auto* library = Imports(); library->Name != 0; ++library) {
        if (void** const place = FindIn(*library, function)) return place;
    }
    throw std::invalid_argument(std::string("not imported: ") + function);
}

}  // namespace

PatchedImport::PatchedImport(const char* function, void* replacement)
    : place(FindPlace(function)), original(*place) {
    Put(replacement);
}

void PatchedImport::Put(void* function) const {
    DWORD protection = 0;
    VirtualProtect(place, sizeof(*place), PAGE_READWRITE, &protection);
    *place = function;
    VirtualProtect(place, sizeof(*place), protection, &protection);
}
