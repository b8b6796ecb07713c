#include "tests/windows/world/PatchedExport.h"

#include <string>

namespace {

std::string replacedExport;
FARPROC exportReplacement = nullptr;
FARPROC(WINAPI* realLookup)(HMODULE, LPCSTR) = nullptr;

FARPROC WINAPI LookUp(HMODULE library, LPCSTR name) {
    return replacedExport == name ? exportReplacement : realLookup(library, name);
}

}  // namespace

PatchedExport::Lookup* PatchedExport::Prepare(const char* function, void* replacement) {
    replacedExport = function;
    exportReplacement = reinterpret_cast<FARPROC>(replacement);
    realLookup = &GetProcAddress;
    return &LookUp;
}
