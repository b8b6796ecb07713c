#include "tests/unit/packagecheck/BinaryFiles.h"

#include <algorithm>

namespace {

void Put(std::string& bytes, std::size_t position, std::uint32_t number, std::size_t length = 4) {
    if (bytes.size() < position + length) bytes.resize(position + length);
    for (std::size_t i = 0; i < length; ++i) bytes[position + i] = static_cast<char>(number >> (8 * i));
}

void PutBigEndian(std::string& bytes, std::uint32_t number) {
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(number >> static_cast<unsigned>(shift));
}

// The section with the exports lies in the file at this position, and at this address in memory.
constexpr std::uint32_t sectionPosition = 0x200;
constexpr std::uint32_t sectionAddress = 0x1000;

}  // namespace

std::string MakeLibrary(const std::vector<std::string>& exports, std::uint32_t machine) {
    constexpr std::size_t header = 0x40;
    std::string bytes = "MZ";
    Put(bytes, 0x3C, header);
    Put(bytes, header, 0x00004550);
    Put(bytes, header + 4, machine, 2);
    Put(bytes, header + 6, 2, 2);        // sections
    Put(bytes, header + 20, 0xF0, 2);    // size of the optional header
    Put(bytes, header + 22, 0x2000, 2);  // a library
    Put(bytes, header + 24, 0x20B, 2);
    Put(bytes, header + 24 + 112, sectionAddress);
    const std::size_t emptySection = header + 24 + 0xF0;
    Put(bytes, emptySection + 12, 2 * sectionAddress);
    const std::size_t section = emptySection + 40;
    Put(bytes, section + 12, sectionAddress);
    Put(bytes, section + 16, 0x1000);
    Put(bytes, section + 20, sectionPosition);
    const auto count = static_cast<std::uint32_t>(exports.size());
    Put(bytes, sectionPosition + 24, count);
    Put(bytes, sectionPosition + 32, sectionAddress + 40);
    bytes.resize(sectionPosition + 40 + 4 * exports.size());
    for (std::uint32_t i = 0; i < count; ++i) {
        const auto address = static_cast<std::uint32_t>(bytes.size()) - sectionPosition + sectionAddress;
        Put(bytes, sectionPosition + 40 + 4 * i, address);
        bytes += exports[i] + '\0';
    }
    const auto used = static_cast<std::uint32_t>(bytes.size()) - sectionPosition;
    Put(bytes, section + 8, std::max<std::uint32_t>(used, 0x1000));
    return bytes;
}

std::string MakePng(std::uint32_t width, std::uint32_t height) {
    std::string bytes("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16);
    PutBigEndian(bytes, width);
    PutBigEndian(bytes, height);
    bytes += std::string(9, '\0');
    bytes += std::string("\0\0\0\0IEND\xAE\x42\x60\x82", 12);
    return bytes;
}

std::string MakeBitmap(std::uint32_t width, std::uint32_t height) {
    std::string bytes = "BM";
    Put(bytes, 10, 54);
    Put(bytes, 18, width);
    Put(bytes, 22, height);
    bytes.resize(64);
    return bytes;
}
