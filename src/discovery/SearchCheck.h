// Where to search, as the user types it: the rules of the search dialog without its window.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "settings/TextKeys.h"

// Everything here belongs to one thread at a time and knows no window.

enum class SearchKind { OwnSubnet, Host, Subnet, Unreadable, UnreadableSubnet };

// A search as the fields of the dialog show it.
struct ShownSearch {
    SearchKind kind = SearchKind::OwnSubnet;
    std::wstring host;
    std::wstring address;
    std::wstring mask;
};

// Returns what a search document says; the empty one stands for the own subnet.
ShownSearch ReadSearch(std::wstring_view document);

// Returns the search document of a search of the first three kinds.
std::wstring WriteSearch(const ShownSearch& search);

// The longest texts of the fields, in characters.
inline constexpr std::size_t longestHost = 255;
inline constexpr std::size_t longestAddress = 45;

// What becomes of a field after its check.
struct FieldVerdict {
    bool accepted = false;
    // What is said about the field; empty for nothing.
    TextId complaint;
    // How many of its first characters the field keeps.
    std::optional<std::size_t> cutTo;
};

// Remembers each field's last text: what is said once is not said again until the text changes.
class SearchCheck {
public:
    // How the system reads addresses. One that cannot read them takes every address.
    struct AddressReading {
        std::function<bool()> isPossible;
        std::function<bool(const std::wstring& text)> isAddress;
    };

    explicit SearchCheck(AddressReading systemReading) : reading(std::move(systemReading)) {}

    // The next check of the host counts although the text did not change.
    void Force() { forced = true; }

    // Each takes the whole text of its field.
    FieldVerdict CheckHost(const std::wstring& fieldText);
    FieldVerdict CheckAddress(const std::wstring& fieldText) { return Check(addressField, fieldText); }
    FieldVerdict CheckMask(const std::wstring& fieldText) { return Check(maskField, fieldText); }

private:
    struct AddressField {
        TextId limitText;
        TextId invalidText;
        std::wstring lastText;
        std::wstring cutText;
    };

    FieldVerdict Check(AddressField& field, const std::wstring& fieldText);
    bool IsAcceptedHost(const std::wstring& text) const;

    AddressReading reading;
    std::wstring lastHost;
    // The text that was cut off, until the user changes it.
    std::wstring cutHost;
    AddressField addressField{.limitText = TextKey::MSG_IP_LIMIT,
                              .invalidText = TextKey::MSG_INVALID_IP,
                              .lastText = {},
                              .cutText = {}};
    AddressField maskField{.limitText = TextKey::MSG_SUBNET_LIMIT,
                           .invalidText = TextKey::MSG_INVALID_SUBNET,
                           .lastText = {},
                           .cutText = {}};
    bool forced = false;
};
