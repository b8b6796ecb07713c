#include "discovery/ReplyMemory.h"

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <utility>

#include "CommonLib/Singleton.h"

namespace {

struct Block {
    std::unique_ptr<wchar_t[]> memory;
    std::uint32_t count = 0;
};

struct Blocks {
    std::mutex lock;
    std::map<const wchar_t*, Block> byAddress;
};

// Lives until the process is gone: a library may ask at the very end.
Singleton<Blocks> blocks;

}  // namespace

wchar_t* ReplyMemory::Allocate(std::uint32_t count, wchar_t** memory) {
    if (memory == nullptr) return nullptr;
    *memory = nullptr;
    try {
        Block block{.memory = std::make_unique<wchar_t[]>(count), .count = count};
        Blocks& all = blocks.Get();
        const std::lock_guard guard(all.lock);
        wchar_t* const address = block.memory.get();
        all.byAddress.emplace(address, std::move(block));
        return *memory = address;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

std::wstring ReplyMemory::Read(const wchar_t* memory, std::uint32_t count) {
    Blocks& all = blocks.Get();
    const std::lock_guard guard(all.lock);
    const auto found = all.byAddress.find(memory);
    if (found == all.byAddress.end()) return {};
    return {memory, std::min(count, found->second.count)};
}

void ReplyMemory::ReleaseAll() {
    Blocks& all = blocks.Get();
    const std::lock_guard guard(all.lock);
    all.byAddress.clear();
}
