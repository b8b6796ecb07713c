#include "standins/discovery/KeyedTexts.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "standins/discovery/AsciiText.h"

namespace discovery {

namespace {

constexpr std::string_view blanks = " \t\r\n";

constexpr auto shortForms =
    std::to_array<std::pair<std::string_view, std::string_view>>({{"manufacturer", "mfg"},
                                                                  {"model", "mdl"},
                                                                  {"command set", "cmd"},
                                                                  {"class", "cls"},
                                                                  {"description", "des"}});

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string DeviceIdKey(std::string_view text) {
    const std::string key = SmallText(Trim(text));
    const auto* const known =
        std::ranges::find(shortForms, key, &std::pair<std::string_view, std::string_view>::first);
    return known == shortForms.end() ? key : std::string(known->second);
}

// Some devices send the count of the bytes, itself included, in front of the text.
BytesView WithoutLength(BytesView deviceId) {
    if (deviceId.size() < 2) return deviceId;
    const auto high = static_cast<std::uint8_t>(deviceId[0]);
    const auto low = static_cast<std::uint8_t>(deviceId[1]);
    return (std::size_t{high} << 8 | low) == deviceId.size() ? deviceId.substr(2) : deviceId;
}

// Calls the function for each piece between separators, the rest after the last one too.
template <typename Function>
void ForEachPiece(std::string_view text, char separator, Function function) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        function(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

}  // namespace

std::string FirstOf(const KeyedTexts& texts, std::initializer_list<std::string_view> keys) {
    for (const std::string_view key : keys) {
        const auto found = texts.find(key);
        if (found != texts.end() && !found->second.empty()) return found->second;
    }
    return {};
}

KeyedTexts ReadTxtRecord(const std::vector<Bytes>& strings) {
    KeyedTexts texts;
    for (const Bytes& string : strings) {
        const std::size_t end = std::min(string.find('='), string.size());
        if (end == 0) continue;
        texts.try_emplace(SmallText(string.substr(0, end)), string.substr(std::min(end + 1, string.size())));
    }
    return texts;
}

KeyedTexts ReadDeviceId(BytesView deviceId) {
    KeyedTexts texts;
    ForEachPiece(WithoutLength(deviceId), ';', [&](std::string_view piece) {
        const std::size_t colon = piece.find(':');
        if (colon == std::string_view::npos) return;
        texts.try_emplace(DeviceIdKey(piece.substr(0, colon)), Trim(piece.substr(colon + 1)));
    });
    return texts;
}

bool HasWord(std::string_view list, std::string_view word) {
    bool found = false;
    ForEachPiece(list, ',',
                 [&](std::string_view piece) { found = found || EqualsInAnyCase(Trim(piece), word); });
    return found;
}

}  // namespace discovery
