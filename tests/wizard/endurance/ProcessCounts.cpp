#include "tests/wizard/endurance/ProcessCounts.h"

#include <psapi.h>
#include <winternl.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "tests/wizard/GdiObjects.h"

namespace {

template <class Value>
bool Read(HANDLE process, const void* place, Value* values, std::size_t count) {
    return ReadProcessMemory(process, place, values, count * sizeof(Value), nullptr) != FALSE;
}

// An entry of the system's list of all handles.
struct HandleEntry {
    std::uint32_t process;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint16_t handle;
    void* object;
    std::uint32_t access;
};

struct HandleList {
    std::uint32_t count;
    std::array<HandleEntry, 1> entries;
};

// Where the system does not tell its count, its list does.
std::size_t CountHandles(HANDLE process) {
    DWORD told = 0;
    if (GetProcessHandleCount(process, &told) != FALSE && told != 0) return told;
    constexpr auto allHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
    std::vector<std::uint8_t> memory(1U << 20);
    if (NtQuerySystemInformation(allHandles, memory.data(), static_cast<ULONG>(memory.size()), nullptr) != 0)
        return 0;
    const auto* const list = reinterpret_cast<const HandleList*>(memory.data());
    const std::span entries(list->entries.data(), list->count);
    return static_cast<std::size_t>(
        std::ranges::count(entries, GetProcessId(process), &HandleEntry::process));
}

std::string Growth(const char* what, std::size_t before, std::size_t after, std::size_t allowed) {
    if (after <= before + allowed) return {};
    return std::string(what) + " grow from " + std::to_string(before) + " to " + std::to_string(after) + ". ";
}

}  // namespace

ProcessCounts CountOf(HANDLE process) {
    PROCESS_MEMORY_COUNTERS memory{.cb = sizeof(PROCESS_MEMORY_COUNTERS)};
    GetProcessMemoryInfo(process, &memory, sizeof(memory));
    return {.handles = CountHandles(process),
            .gdiObjects = CountGdiObjects(process),
            .bytes = memory.PagefileUsage};
}

std::string GrowthIn(const std::vector<ProcessCounts>& counts) {
    constexpr std::size_t pages = 1U << 20;
    const auto growsEachTime = [&](std::size_t ProcessCounts::*count) {
        return std::ranges::adjacent_find(counts, [&](const ProcessCounts& one, const ProcessCounts& next) {
                   return next.*count <= one.*count;
               }) == counts.end();
    };
    ProcessCounts allowed = {
        .handles = counts.back().handles, .gdiObjects = counts.back().gdiObjects, .bytes = pages};
    if (growsEachTime(&ProcessCounts::handles)) allowed.handles = 0;
    if (growsEachTime(&ProcessCounts::gdiObjects)) allowed.gdiObjects = 0;
    return GrowthBetween(counts.front(), counts.back(), allowed);
}

std::string GrowthBetween(const ProcessCounts& before, const ProcessCounts& after,
                          const ProcessCounts& allowed) {
    return Growth("handles", before.handles, after.handles, allowed.handles) +
           Growth("GDI objects", before.gdiObjects, after.gdiObjects, allowed.gdiObjects) +
           Growth("private bytes", before.bytes, after.bytes, allowed.bytes);
}
