#include "tools/PackageCheck/PeExports.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace packagecheck {

namespace {

// A part of the file that lies at an address of its own once it is loaded.
struct Section {
    std::uint32_t address = 0;
    std::uint32_t size = 0;
    std::uint32_t position = 0;
};

class PeReader {
public:
    explicit PeReader(std::string_view file) : bytes(file) {}

    std::optional<PeLibrary> Read() {
        constexpr std::uint32_t signature = 0x00004550;
        const std::size_t header = Number(0x3C, 4);
        if (!bytes.starts_with("MZ") || Number(header, 4) != signature) return std::nullopt;
        const std::size_t optional = header + 24;
        if (!Has(optional, 2)) return std::nullopt;
        constexpr std::uint32_t x64 = 0x8664;
        constexpr std::uint32_t wideForm = 0x20B;
        constexpr std::uint32_t libraryFlag = 0x2000;
        PeLibrary library{.isFor64Bit = Number(header + 4, 2) == x64 && Number(optional, 2) == wideForm,
                          .isLibrary = (Number(header + 22, 2) & libraryFlag) != 0};
        ReadSections(optional + Number(header + 20, 2), Number(header + 6, 2));
        if (library.isFor64Bit) ReadExports(Number(optional + 112, 4), library);
        return library;
    }

private:
    bool Has(std::size_t position, std::size_t length) const {
        return position <= bytes.size() && length <= bytes.size() - position;
    }

    // A number with its lowest byte first; 0 where the file ends before.
    std::uint32_t Number(std::size_t position, std::size_t length) const {
        if (!Has(position, length)) return 0;
        std::uint32_t number = 0;
        for (std::size_t i = length; i-- > 0;) {
            number = (number << 8U) | static_cast<unsigned char>(bytes[position + i]);
        }
        return number;
    }

    void ReadSections(std::size_t start, std::uint32_t count) {
        constexpr std::uint32_t mostSections = 96;
        for (std::uint32_t i = 0; i < std::min(count, mostSections); ++i) {
            const std::size_t entry = start + std::size_t{i} * 40;
            sections.push_back({.address = Number(entry + 12, 4),
                                .size = std::max(Number(entry + 8, 4), Number(entry + 16, 4)),
                                .position = Number(entry + 20, 4)});
        }
    }

    // Where in the file an address lies; past its end where nowhere.
    std::size_t PositionOf(std::uint32_t address) const {
        for (const Section& section : sections) {
            if (address >= section.address && address - section.address < section.size) {
                return std::size_t{section.position} + (address - section.address);
            }
        }
        return bytes.size();
    }

    void ReadExports(std::uint32_t address, PeLibrary& library) const {
        const std::size_t table = PositionOf(address);
        if (address == 0 || !Has(table, 40)) return;
        const std::size_t names = PositionOf(Number(table + 32, 4));
        // A name goes with a number of two bytes.
        constexpr std::uint32_t mostNames = 0x10000;
        const std::size_t count = std::min(Number(table + 24, 4), mostNames);
        for (std::size_t i = 0; i < count && Has(names + i * 4, 4); ++i) {
            const std::string_view name = NameAt(PositionOf(Number(names + i * 4, 4)));
            if (!name.empty()) library.exports.emplace(name);
        }
    }

    std::string_view NameAt(std::size_t position) const {
        constexpr std::size_t longestExport = 256;
        if (position >= bytes.size()) return {};
        const std::string_view rest = bytes.substr(position, longestExport);
        return rest.substr(0, rest.find('\0'));
    }

    std::string_view bytes;
    std::vector<Section> sections;
};

}  // namespace

std::optional<PeLibrary> ReadPeLibrary(std::string_view bytes) {
    return PeReader(bytes).Read();
}

}  // namespace packagecheck
