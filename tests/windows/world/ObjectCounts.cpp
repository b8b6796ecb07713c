#include "tests/windows/world/ObjectCounts.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <winternl.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <new>

#include "tests/wizard/GdiObjects.h"
#include "tests/wizard/Waiting.h"

namespace {

std::atomic<int> liveAllocations = 0;

// Handles are multiples of four, given out from the lowest free one on.
int CountKernelHandles() {
    constexpr std::uintptr_t step = 4;
    constexpr std::uintptr_t enough = 0x4000;
    int count = 0;
    for (std::uintptr_t value = step; value < enough; value += step) {
        DWORD flags = 0;
        if (GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) != FALSE) ++count;
    }
    return count;
}

}  // namespace

void* operator new(std::size_t size) {
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    ++liveAllocations;
    return block;
}

void operator delete(void* block) noexcept {
    if (block == nullptr) return;
    --liveAllocations;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}

void PrintTo(const ObjectCounts& counts, std::ostream* stream) {
    *stream << counts.kernelHandles << " handles, " << counts.gdiObjects << " GDI objects, "
            << counts.userObjects << " user objects, " << counts.allocations << " allocations";
}

ObjectCounts CountObjects() {
    return {.kernelHandles = CountKernelHandles(),
            .gdiObjects = static_cast<int>(CountGdiObjects(GetCurrentProcess())),
            .userObjects = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)),
            .allocations = liveAllocations};
}

bool LeavesNothingBehind(const std::function<void()>& deed) {
    constexpr int tries = 3;
    for (int attempt = 0; attempt < tries; ++attempt) {
        const ObjectCounts before = CountObjects();
        deed();
        if (WaitUntil([&] { return CountObjects() == before; }, std::chrono::seconds(2))) return true;
        std::cout << "before: " << testing::PrintToString(before)
                  << ", after: " << testing::PrintToString(CountObjects()) << '\n'
                  << std::flush;
    }
    return false;
}
