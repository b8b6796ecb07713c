// What the two libraries that find devices and ask them have between themselves.
#pragma once

#include <cstdint>

extern "C" {

// Sondrix.dll: what the last searches learned of the device of an address beyond its document, for
// Quelmar.dll. The capacity is in characters, with the NUL that ends the document. 1168 for an address that
// they did not find.
std::uint32_t RecallW(const wchar_t* address, wchar_t* buffer, std::uint32_t capacity,
                      std::uint32_t* required);
}
