// The questions and answers between this program and the copy of it that asks the package's library, one
// document in a line each. What comes from there may be anything, since the library can write into the same
// pipe.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/Rollout/PackageEntry.h"

namespace rollout {

// The questions. The last one is followed by the package's path.
namespace Question {

inline constexpr std::string_view describe = "describe";
inline constexpr std::string_view states = "states";
inline constexpr std::string_view remove = "remove ";

}  // namespace Question

// The answers, each without its line end. A text that is none of them yields nothing when it is read.
std::string WriteDescription(const PackageDescription& description);
std::optional<PackageDescription> ReadDescription(std::string_view line);

std::string WriteStates(const std::vector<PackageState>& states);
std::optional<std::vector<PackageState>> ReadStates(std::string_view line);

std::string WriteRemoval(std::uint32_t code);
std::optional<std::uint32_t> ReadRemoval(std::string_view line);

}  // namespace rollout
