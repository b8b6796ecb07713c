// The memory that a library asks the program for, to put a reply of unknown length in.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "CommonLib/Singleton.h"

// What a library has asked for belongs to the program until it is released. Any thread may ask.
class ReplyMemory {
public:
    // The callback that a library gets: stores the address of that many wide characters and also returns it;
    // null where there is no such room.
    static wchar_t* Allocate(std::uint32_t count, wchar_t** memory);

    // Up to that many characters from an address that Allocate gave, never more than it has; empty for any
    // other address.
    static std::wstring Read(const wchar_t* memory, std::uint32_t count);
    // Frees everything that libraries have asked for.
    static void ReleaseAll();

private:
    friend class Singleton<ReplyMemory>;
    ReplyMemory() = default;

    struct Block {
        std::unique_ptr<wchar_t[]> memory;
        std::uint32_t count = 0;
    };
    static ReplyMemory& GetInstance();

    std::mutex lock;
    std::map<const wchar_t*, Block> blocks;
};
