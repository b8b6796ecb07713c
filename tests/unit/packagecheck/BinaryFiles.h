// Small files of other programs, as far as the checks look into them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// A library of Windows with these exports, for x64 unless another processor is given.
std::string MakeLibrary(const std::vector<std::string>& exports, std::uint32_t machine = 0x8664);

std::string MakePng(std::uint32_t width, std::uint32_t height);
std::string MakeBitmap(std::uint32_t width, std::uint32_t height);
