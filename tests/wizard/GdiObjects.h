// How many GDI objects a process has.
#pragma once

#include <windows.h>

#include <winternl.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

// An entry of the table of GDI objects that a 64-bit system maps into every process.
struct GdiEntry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t generation;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t userData;
};

// Where the system does not tell its count, its table does. Returns 0 where the process cannot be read.
inline std::size_t CountGdiObjects(HANDLE process) {
    if (const DWORD told = GetGuiResources(process, GR_GDIOBJECTS)) return told;
    constexpr std::size_t tablePlace = 0xF8;
    PROCESS_BASIC_INFORMATION information{};
    NtQueryInformationProcess(process, ProcessBasicInformation, &information, sizeof(information), nullptr);
    const auto* const block = reinterpret_cast<const std::uint8_t*>(information.PebBaseAddress);
    const void* table = nullptr;
    std::vector<GdiEntry> entries(0x4000);
    if (ReadProcessMemory(process, block + tablePlace, static_cast<void*>(&table), sizeof(table), nullptr) ==
            FALSE ||
        ReadProcessMemory(process, table, entries.data(), entries.size() * sizeof(GdiEntry), nullptr) ==
            FALSE)
        return 0;
    return static_cast<std::size_t>(
        std::ranges::count_if(entries, [](const GdiEntry& entry) { return entry.type != 0; }));
}
