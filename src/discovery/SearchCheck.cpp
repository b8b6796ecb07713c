#include "discovery/SearchCheck.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "CommonLib/AddressText.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"

namespace {

// Ones that are followed by zeros alone.
bool IsMask(const std::vector<std::uint8_t>& bytes) {
    bool ended = false;
    for (std::uint8_t byte : bytes) {
        for (int bit = 0; bit < 8; ++bit, byte = static_cast<std::uint8_t>(byte << 1)) {
            const bool isSet = (byte & 0x80) != 0;
            if (isSet && ended) return false;
            ended = !isSet;
        }
    }
    return !bytes.empty() && bytes.front() != 0;
}

bool IsAddress(std::wstring_view text) {
    return text.size() <= longestAddress && !AddressBytes(text).empty();
}

// The colon between address and mask. An IPv6 address has colons of its own: of the places where both halves
// are addresses, the first at which the second half is a mask counts, and without one the first of all.
std::size_t FindDivider(std::wstring_view subnet) {
    std::size_t both = std::wstring_view::npos;
    for (std::size_t colon = subnet.find(L':'); colon <= longestAddress;
         colon = subnet.find(L':', colon + 1)) {
        const std::wstring_view mask = subnet.substr(colon + 1);
        if (!IsAddress(mask) || !IsAddress(subnet.substr(0, colon))) continue;
        if (IsMask(AddressBytes(mask))) return colon;
        both = std::min(both, colon);
    }
    if (both != std::wstring_view::npos) return both;
    // What was confirmed past the check: an address with something else for a mask, or neither.
    const std::size_t last = subnet.rfind(L':');
    return IsAddress(subnet.substr(0, last)) ? last : subnet.find(L':');
}

// The mask ends with the character that closes the subnet, whatever it is.
ShownSearch ReadSubnet(const std::wstring& subnet) {
    if (subnet.find(L':') == std::wstring::npos) return {.kind = SearchKind::UnreadableSubnet};
    const bool endsInColon = subnet.find(L':') + 1 == subnet.size();
    const std::wstring halves = endsInColon ? subnet : subnet.substr(0, subnet.size() - 1);
    const std::size_t divider = FindDivider(halves);
    return {
        .kind = SearchKind::Subnet, .address = halves.substr(0, divider), .mask = halves.substr(divider + 1)};
}

}  // namespace

ShownSearch ReadSearch(std::wstring_view document) {
    if (document.empty()) return {};
    const std::wstring host = TagDocument::ValueOf(document, Tag::UNICAST_ADDRESS);
    if (!host.empty()) return {.kind = SearchKind::Host, .host = host};
    const std::wstring subnet = TagDocument::ValueOf(document, Tag::REMOTE_SUBNETS);
    return subnet.empty() ? ShownSearch{.kind = SearchKind::Unreadable} : ReadSubnet(subnet);
}

std::wstring WriteSearch(const ShownSearch& search) {
    if (search.kind == SearchKind::Host) return TagDocument::MakeElement(Tag::UNICAST_ADDRESS, search.host);
    if (search.kind != SearchKind::Subnet) return {};
    return TagDocument::MakeElement(Tag::REMOTE_SUBNETS, search.address + L":" + search.mask + L";");
}

bool SearchCheck::IsAcceptedHost(const std::wstring& text) const {
    return (reading.isPossible() && reading.isAddress(text)) || IsValidHostName(text);
}

// A text that is cut off counts as good without a test, as long as it stays as it is.
// By design: any other text that was checked before is refused, valid or not, until it changes.
FieldVerdict SearchCheck::CheckHost(const std::wstring& fieldText) {
    const std::wstring text = fieldText.substr(0, longestHost + 1);
    const bool isForced = std::exchange(forced, false);
    const bool isChanged = text != lastHost;
    if (!text.empty() && text == cutHost) return {.accepted = true};
    cutHost.clear();
    if (text.empty() || (!isChanged && !isForced)) return {};
    lastHost = text.substr(0, longestHost);
    if (text.size() > longestHost) {
        cutHost = lastHost;
        return {.accepted = true, .complaint = TextKey::MSG_HOSTNAME_LIMIT, .cutTo = longestHost};
    }
    if (IsAcceptedHost(text)) return {.accepted = true};
    // Before Vista the message comes whether or not the text has changed.
    const bool complains = isChanged || !reading.isPossible();
    return {.complaint = complains ? TextKey::MSG_INVALID_IPHOST_NAME : TextId()};
}

// Clears the force as well, which was meant for the host.
FieldVerdict SearchCheck::Check(AddressField& field, const std::wstring& fieldText) {
    forced = false;
    const std::wstring text = fieldText.substr(0, longestAddress + 2);
    if (!text.empty() && text == field.cutText) return {.accepted = true};
    field.cutText.clear();
    if (text.empty()) return {};
    const bool isChanged = text != field.lastText;
    if (isChanged && fieldText.size() > longestAddress) {
        field.lastText = text.substr(0, longestAddress);
        field.cutText = field.lastText;
        return {.accepted = true, .complaint = field.limitText, .cutTo = longestAddress};
    }
    field.lastText = text;
    if (!reading.isPossible() || reading.isAddress(text)) return {.accepted = true};
    return {.complaint = isChanged ? field.invalidText : TextId()};
}
