#include "discovery/ReplyMemory.h"

#include <algorithm>
#include <new>
#include <utility>

namespace {

Singleton<ReplyMemory> singleton;

}  // namespace

ReplyMemory& ReplyMemory::GetInstance() {
    return singleton.Get();
}

wchar_t* ReplyMemory::Allocate(std::uint32_t count, wchar_t** memory) {
    if (memory == nullptr) return nullptr;
    *memory = nullptr;
    try {
        Block block{.memory = std::make_unique<wchar_t[]>(count), .count = count};
        ReplyMemory& instance = GetInstance();
        const std::lock_guard guard(instance.lock);
        wchar_t* const address = block.memory.get();
        instance.blocks.emplace(address, std::move(block));
        return *memory = address;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

std::wstring ReplyMemory::Read(const wchar_t* memory, std::uint32_t count) {
    ReplyMemory& instance = GetInstance();
    const std::lock_guard guard(instance.lock);
    const auto found = instance.blocks.find(memory);
    if (found == instance.blocks.end()) return {};
    return {memory, std::min(count, found->second.count)};
}

void ReplyMemory::ReleaseAll() {
    ReplyMemory& instance = GetInstance();
    const std::lock_guard guard(instance.lock);
    instance.blocks.clear();
}
