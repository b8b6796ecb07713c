// The code pages of Windows, alike on every platform. Functions of their arguments, for any thread.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace packagecheck {

// True for a code page that Windows can decode text of; 0 stands for that of the system.
bool IsCodePage(unsigned page);

// Returns where the first byte is that is no character of the code page, or nothing. Nothing is known of a
// code page other than UTF-8, 874, 1250 to 1258 and those of East Asia, 932, 936, 949 and 950.
std::optional<std::size_t> FirstForeignByte(unsigned page, std::string_view bytes);

// Returns where the first character begins that the end of a piece of a line falls into, or nothing; pieces
// have so many bytes, and begin anew after each line feed.
std::optional<std::size_t> FirstSplitCharacter(unsigned page, std::string_view bytes, std::size_t piece);

}  // namespace packagecheck
