// The memory that a library asks the program for, to put a reply of unknown length in.
#pragma once

#include <cstdint>
#include <string>

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
};
