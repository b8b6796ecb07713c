// What the discovery worker asks the devices through Quelmar.dll.

#include <algorithm>
#include <optional>
#include <vector>

#include "CommonLib/Logger.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/PackageLibraries.h"
#include "CommonLib/SystemText.h"
#include "CommonLib/TextUtilities.h"
#include "discovery/DiscoveryService.h"
#include "discovery/NpaQuestions.h"
#include "discovery/NpaReply.h"
#include "discovery/ReplyMemory.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"

namespace {

constexpr std::wstring_view timeoutInMilliseconds = L"3000";
constexpr std::size_t firstReplySize = 4096;
// A packet counts the bytes after its three leading ones in 16 bits.
constexpr std::uint32_t longestPacket = 3 + 0xFFFF;

std::wstring Request(std::wstring_view tag, std::wstring_view addresses) {
    return TagDocument::MakeElement(tag, addresses) +
           TagDocument::MakeElement(Tag::TIMEOUT, timeoutInMilliseconds);
}

// The reply packet of one device; nothing if the exchange fails.
// By design: the first call says a size of 0, whatever the buffer holds, so it normally only learns the
// length.
std::optional<std::vector<std::uint8_t>> Exchange(decltype(&BidiExchangeNpaW) exchange,
                                                  const std::wstring& address) {
    const std::wstring request = Request(Tag::IPADDRESS, address);
    std::vector<std::uint8_t> reply(firstReplySize);
    std::uint32_t length = 0;
    const auto call = [&](std::uint32_t size) {
        return exchange(request.c_str(), deviceQuestion.data(),
                        static_cast<std::uint32_t>(deviceQuestion.size()), reply.data(), size, &length);
    };
    std::uint32_t code = call(0);
    if (code == MsiCode::BufferTooSmall) {
        if (length > longestPacket) {
            LogBasic(
                L"Quelmar.dll asks for a reply of " + std::to_wstring(length) + L" bytes from " + address,
                LogLevel::Error);
            return std::nullopt;
        }
        reply.assign(length, 0);
        code = call(length);
    }
    if (code != MsiCode::Success) return std::nullopt;
    reply.resize(std::min<std::size_t>(reply.size(), length));
    return reply;
}

}  // namespace

void DiscoveryService::ExchangeColours(const std::wstring& addresses, DeviceIndex& index) const {
    if (!quelmarModule || cancelled) return;
    const auto exchange =
        FindExport<decltype(&BidiExchangeNpaAll)>(quelmarModule.get(), "BidiExchangeNpaAll");
    if (exchange == nullptr) return;
    wchar_t* reply = nullptr;
    std::uint32_t length = 0;
    const std::uint32_t code =
        exchange(Request(Tag::IPLIST, addresses).c_str(), colourQuestion.data(),
                 static_cast<std::uint32_t>(colourQuestion.size()), &reply, &length, &ReplyMemory::Allocate);
    if (code == MsiCode::Success) {
        const std::wstring colours = ReplyMemory::Read(reply, length);
        if (colours.empty() && reply != nullptr && length > 0) {
            LogBasic(L"The reply of Quelmar.dll lies in foreign memory", LogLevel::Error);
        }
        ApplyColours(colours, index);
    }
    ReplyMemory::ReleaseAll();
}

void DiscoveryService::ExchangeFax(const std::wstring& addresses, DeviceIndex& index) const {
    if (!quelmarModule || cancelled) return;
    const auto exchange = FindExport<decltype(&BidiExchangeNpaW)>(quelmarModule.get(), "BidiExchangeNpaW");
    if (exchange == nullptr) return;
    for (const std::wstring& address : SplitClosed(addresses, L';')) {
        // What is found out after a cancel goes nowhere, and each device can take seconds.
        if (cancelled) return;
        const auto reply = Exchange(exchange, address);
        if (!reply) continue;
        const std::optional<NpaDeviceInfo> info = DecodeNpaReply(*reply, &Utf8ToWide);
        if (!info) {
            LogBasic(L"The reply of the device " + address + L" cannot be read", LogLevel::Error);
        } else if (info->HasFax()) {
            index.SetTag(address, Tag::FAXINSTALLED, L"1");
        }
    }
}
