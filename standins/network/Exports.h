// The exports of the two libraries that find devices and ask them. Texts are wide and end with a NUL; a code
// of 0 is success, 122 a buffer that is too small.
#pragma once

#include <cstdint>

extern "C" {

// Sondrix.dll. DiscoverW may be ended by Uninitialize from another thread, and then returns 1223 soon.
void Initialize();
void Uninitialize();
std::uint32_t DiscoverW(const wchar_t* searchDocument);
// Capacities are in characters, with the NUL that ends each document. The listing is that of the last search.
std::uint32_t EnumerateW(wchar_t* buffer, std::uint32_t capacity, std::uint32_t* required,
                         const wchar_t* enumerationDocument);
// What the last searches learned of the device of an address beyond its document, for Quelmar.dll; 1168 for
// an address that they did not find.
std::uint32_t RecallW(const wchar_t* address, wchar_t* buffer, std::uint32_t capacity,
                      std::uint32_t* required);

// Quelmar.dll. The reply about all devices is made by the allocator and belongs to the caller; its length is
// in characters, without a NUL. The reply about one device is a packet, its length in bytes.
void BidiInitialize();
void BidiUninitialize();
std::uint32_t BidiExchangeNpaAll(const wchar_t* request, const std::uint8_t* packet,
                                 std::uint32_t packetLength, wchar_t** reply, std::uint32_t* replyLength,
                                 wchar_t* (*allocate)(std::uint32_t count, wchar_t** memory));
std::uint32_t BidiExchangeNpaW(const wchar_t* request, const std::uint8_t* packet, std::uint32_t packetLength,
                               std::uint8_t* reply, std::uint32_t replySize, std::uint32_t* replyLength);
}
