// The exports of a library of Windows, read from its bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace packagecheck {

struct PeLibrary {
    bool isFor64Bit = false;  // for x64, the processor of the wizard
    bool isLibrary = false;   // and not a program
    std::set<std::string> exports;
};

// Returns what the file says of itself, or nothing where it is no program file of Windows. Takes time in
// proportion to the bytes, whatever they claim.
std::optional<PeLibrary> ReadPeLibrary(std::string_view bytes);

}  // namespace packagecheck
