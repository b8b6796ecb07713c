// The files that a new package begins with. Their bytes become part of the program when it is built.
#pragma once

#include <span>
#include <string_view>

namespace packagecheck {

struct StarterFile {
    std::string_view path;  // in the new package
    std::string_view bytes;
};

std::span<const StarterFile> StarterFiles();

}  // namespace packagecheck
