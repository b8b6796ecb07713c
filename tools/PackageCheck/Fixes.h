// Repairs of what has one safe cure.
#pragma once

#include <string>
#include <vector>

#include "tools/PackageCheck/Package.h"

namespace packagecheck {

// A file as it is and as it would be.
struct FileFix {
    std::string path;
    std::string before;
    std::string after;
};

// How a file is read, since only some repairs are safe for each.
enum class TextKind { Defaults, User, Language };

// Returns the bytes of a file with what has one safe cure repaired: UTF-16, marks at the start and the end,
// blanks around values of the settings, and elements over several lines in the user's file. What does not
// decode is left.
std::string FixedBytes(const std::string& bytes, TextKind kind);

// Returns the files of the package that would change.
std::vector<FileFix> FindFixes(const Package& package);

}  // namespace packagecheck
