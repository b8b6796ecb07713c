// The exports of the scripted Quelmar.dll.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <string>

#include "CommonLib/PackageLibraries.h"
#include "settings/TagDocument.h"
#include "tests/fakes/LibraryFolder.h"
#include "tests/fakes/Network/Network.h"

namespace {

constexpr std::uint32_t noAnswer = 1460;

std::wstring Hex(const std::uint8_t* bytes, std::uint32_t count) {
    std::wstring text;
    for (std::uint32_t place = 0; place < count; ++place) {
        std::array<wchar_t, 3> digits{};
        std::swprintf(digits.data(), digits.size(), L"%02X", bytes[place]);
        text += digits.data();
    }
    return text;
}

}  // namespace

extern "C" {

void BidiInitialize() {
    Network().Record({L"BidiInitialize"});
}

void BidiUninitialize() {
    Network().Record({L"BidiUninitialize"});
}

std::uint32_t BidiExchangeNpaAll(const wchar_t* request, const std::uint8_t* packet,
                                 std::uint32_t packetLength, wchar_t** reply, std::uint32_t* replyLength,
                                 wchar_t* (*allocate)(std::uint32_t count, wchar_t** memory)) {
    Network().Record(
        {L"BidiExchangeNpaAll", Field(L"request", request), Field(L"packet", Hex(packet, packetLength))});
    const NetworkRun& run = Network().CurrentRun();
    Network().Wait(run.colours);
    *replyLength = run.colours.required.value_or(static_cast<std::uint32_t>(run.reply.size()));
    if (run.colours.foreign) {
        static std::wstring ownMemory;
        ownMemory = run.reply;
        *reply = ownMemory.data();
    } else if (wchar_t* const memory = allocate(static_cast<std::uint32_t>(run.reply.size()), reply)) {
        std::copy(run.reply.begin(), run.reply.end(), memory);
    }
    return run.colours.code;
}

std::uint32_t BidiExchangeNpaW(const wchar_t* request, const std::uint8_t* packet, std::uint32_t packetLength,
                               std::uint8_t* reply, std::uint32_t replySize, std::uint32_t* replyLength) {
    Network().Record({L"BidiExchangeNpaW", Field(L"request", request),
                      Field(L"packet", Hex(packet, packetLength)), Field(L"size", replySize)});
    const auto& devices = Network().CurrentRun().devices;
    const auto found = devices.find(TagDocument::ValueOf(request, L"IPADDRESS"));
    if (found == devices.end()) return noAnswer;
    const NetworkAnswer& answer = found->second;
    Network().Wait(answer);
    const auto needed = static_cast<std::uint32_t>(answer.packet.size());
    *replyLength = answer.required.value_or(needed);
    if (answer.again || replySize < needed) return bufferTooSmall;
    std::copy(answer.packet.begin(), answer.packet.end(), reply);
    return answer.code;
}
}
