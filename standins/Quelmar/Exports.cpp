#include <windows.h>

#include <span>
#include <string>

#include "CommonLib/PackageLibraries.h"
#include "CommonLib/TextUtilities.h"
#include "settings/TagDocument.h"
#include "standins/Quelmar/DeviceQuestions.h"
#include "standins/discovery/Documents.h"
#include "standins/discovery/FaxPacket.h"
#include "standins/network/Shielded.h"

namespace {

using discovery::Shielded;
using discovery::TextOf;
using discovery::Time;

constexpr std::uint8_t packetStart = 0xA5;
constexpr std::int32_t longestTimeout = 30000;

quelmar::DeviceQuestions& Questions() {
    static quelmar::DeviceQuestions questions;
    return questions;
}

Time TimeoutOf(const std::wstring& request) {
    constexpr std::int32_t usual = 3000;
    const std::int32_t told = LeadingInteger(TagDocument::ValueOf(request, L"TIMEOUT"));
    return Time(told > 0 ? std::min(told, longestTimeout) : usual);
}

bool IsQuestion(const std::uint8_t* packet, std::uint32_t length) {
    return packet != nullptr && length > 0 && *packet == packetStart;
}

// "address:color;" for each device that says what it is.
std::wstring ColoursOf(const std::wstring& request) {
    const std::vector<std::wstring> addresses = SplitClosed(TagDocument::ValueOf(request, L"IPLIST"), L';');
    const auto devices = Questions().Ask(addresses, TimeoutOf(request));
    std::wstring colours;
    for (std::size_t place = 0; place < addresses.size(); ++place) {
        if (!devices[place].isColour) continue;
        colours += addresses[place] + L":";
        colours += discovery::ColourWord(*devices[place].isColour);
        colours += L";";
    }
    return colours;
}

}  // namespace

void BidiInitialize() {
    Questions().Begin();
}

void BidiUninitialize() {
    Questions().End();
}

std::uint32_t BidiExchangeNpaAll(const wchar_t* request, const std::uint8_t* packet,
                                 std::uint32_t packetLength, wchar_t** reply, std::uint32_t* replyLength,
                                 wchar_t* (*allocate)(std::uint32_t count, wchar_t** memory)) {
    return Shielded([&]() -> std::uint32_t {
        const bool canReply = reply != nullptr && replyLength != nullptr && allocate != nullptr;
        if (!canReply || !IsQuestion(packet, packetLength)) return ERROR_INVALID_PARAMETER;
        const std::wstring colours = ColoursOf(TextOf(request));
        *replyLength = static_cast<std::uint32_t>(colours.size());
        if (colours.empty()) return ERROR_SUCCESS;
        wchar_t* const memory = allocate(*replyLength, reply);
        if (memory == nullptr) return ERROR_OUTOFMEMORY;
        std::ranges::copy(colours, memory);
        return ERROR_SUCCESS;
    });
}

std::uint32_t BidiExchangeNpaW(const wchar_t* request, const std::uint8_t* packet, std::uint32_t packetLength,
                               std::uint8_t* reply, std::uint32_t replySize, std::uint32_t* replyLength) {
    return Shielded([&]() -> std::uint32_t {
        if (!IsQuestion(packet, packetLength)) return ERROR_INVALID_PARAMETER;
        const std::wstring document = TextOf(request);
        const auto device =
            Questions().AskOne(TagDocument::ValueOf(document, L"IPADDRESS"), TimeoutOf(document));
        return discovery::CopyOut(discovery::MakeFaxPacket(device.hasFax.value_or(false)), reply, replySize,
                                  replyLength);
    });
}
