#include "discovery/SearchCheck.h"

#include <utility>

#include "CommonLib/AddressText.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"

namespace {

// The mask ends with the character that closes the subnet, whatever it is.
ShownSearch ReadSubnet(const std::wstring& subnet) {
    const std::size_t colon = subnet.find(L':');
    if (colon == std::wstring::npos) return {.kind = SearchKind::UnreadableSubnet};
    std::wstring mask = subnet.substr(colon + 1);
    if (!mask.empty()) mask.pop_back();
    return {.kind = SearchKind::Subnet, .address = subnet.substr(0, colon), .mask = mask};
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

// A text that is cut off counts as good without a test.
// By design: a text that was checked before is refused, valid or not, until it changes.
FieldVerdict SearchCheck::CheckHost(const std::wstring& fieldText) {
    const std::wstring text = fieldText.substr(0, longestHost + 1);
    const bool isForced = std::exchange(forced, false);
    const bool isChanged = text != lastHost;
    if (text.empty() || (!isChanged && !isForced)) return {};
    lastHost = text.substr(0, longestHost);
    if (text.size() > longestHost) {
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
    if (text.empty()) return {};
    const bool isChanged = text != field.lastText;
    if (isChanged && fieldText.size() > longestAddress) {
        field.lastText = text.substr(0, longestAddress);
        return {.accepted = true, .complaint = field.limitText, .cutTo = longestAddress};
    }
    field.lastText = text;
    if (!reading.isPossible() || reading.isAddress(text)) return {.accepted = true};
    return {.complaint = isChanged ? field.invalidText : TextId()};
}
