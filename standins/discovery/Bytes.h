// Bytes as they come from and go to a network.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace discovery {

using Bytes = std::string;
using BytesView = std::string_view;

// What a reader of bytes throws where they are not what they claim to be. No decoder lets it out.
struct Malformed : std::runtime_error {
    Malformed() : std::runtime_error("malformed bytes") {}
};

// A place in bytes that never leaves them. It does not own them; all that it returns points into them.
class ByteReader {
public:
    explicit ByteReader(BytesView source) : bytes(source) {}

    bool IsAtEnd() const { return position == bytes.size(); }
    std::size_t Position() const { return position; }
    std::size_t Left() const { return bytes.size() - position; }
    // The following throw Malformed where too few bytes are left.
    std::uint8_t Byte() { return static_cast<std::uint8_t>(Take(1).front()); }
    std::uint16_t Number16() { return static_cast<std::uint16_t>(BigEndian(2)); }
    std::uint32_t Number32() { return BigEndian(4); }
    BytesView Take(std::size_t count) {
        if (count > Left()) throw Malformed();
        position += count;
        return bytes.substr(position - count, count);
    }

private:
    std::uint32_t BigEndian(std::size_t width) {
        std::uint32_t number = 0;
        for (const char byte : Take(width)) number = number << 8 | static_cast<std::uint8_t>(byte);
        return number;
    }

    BytesView bytes;
    std::size_t position = 0;
};

// Appends the lowest bytes of a number, the most significant first.
inline void AppendBigEndian(Bytes& bytes, std::uint32_t number, int width) {
    for (int shift = (width - 1) * 8; shift >= 0; shift -= 8) {
        bytes += static_cast<char>(static_cast<std::uint8_t>(number >> shift));
    }
}

}  // namespace discovery
