#include "framework/MessageMap.h"

#include <algorithm>
#include <utility>

MessageMap::MessageMap(const MessageMap* baseMap, std::vector<MessageMapEntry> ownEntries)
    : base(baseMap), entries(std::move(ownEntries)) {}

bool MessageMap::Dispatch(CWnd& window, const WindowMessage& message, LRESULT& result) const {
    const auto entry = std::ranges::find_if(
        entries, [&](const MessageMapEntry& candidate) { return candidate.matches(message); });
    if (entry == entries.end()) return base != nullptr && base->Dispatch(window, message, result);
    result = entry->handle(window, message);
    return true;
}
