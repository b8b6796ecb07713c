#include "standins/discovery/DeviceFacts.h"

#include <algorithm>

#include "standins/discovery/AsciiText.h"

namespace discovery {

namespace {

// A device has a few; what claims more makes the search no slower.
constexpr std::size_t mostAddresses = 16;

std::string WithoutMaker(std::string_view text, std::string_view maker) {
    if (!maker.empty() && text.size() > maker.size() && text[maker.size()] == ' ' &&
        EqualsInAnyCase(text.substr(0, maker.size()), maker)) {
        text.remove_prefix(maker.size() + 1);
    }
    return std::string(text);
}

// The record that announces a service puts the product's name in parentheses.
std::string_view WithoutParentheses(std::string_view text) {
    if (text.size() > 2 && text.front() == '(' && text.back() == ')') return text.substr(1, text.size() - 2);
    return text;
}

template <typename Value>
void TakeIfMissing(Value& value, const Value& other) {
    if (!value) value = other;
}

void TakeIfEmpty(std::string& text, const std::string& other) {
    if (text.empty()) text = other;
}

}  // namespace

DeviceName NameOf(const KeyedTexts& deviceId) {
    DeviceName name{.witness = Witness::DeviceId, .maker = FirstOf(deviceId, {"mfg"})};
    name.model = WithoutMaker(FirstOf(deviceId, {"mdl", "des"}), name.maker);
    if (name.model.empty()) name.witness = Witness::None;
    return name;
}

DeviceName NameOf(std::string_view makerAndModel, std::string_view maker, Witness witness) {
    const std::string_view plain = WithoutParentheses(makerAndModel);
    if (plain.empty()) return {};
    return {.witness = witness, .maker = std::string(maker), .model = WithoutMaker(plain, maker)};
}

void TakeClasses(const KeyedTexts& deviceId, DeviceFacts& facts) {
    const std::string classes = FirstOf(deviceId, {"cls"});
    const std::string commands = FirstOf(deviceId, {"cmd"});
    if (HasWord(classes, "FAX") || HasWord(commands, "FAX")) facts.hasFax = true;
    if (HasWord(classes, "SCANNER") || HasWord(classes, "IMAGE") || HasWord(commands, "SCAN"))
        facts.canScan = true;
    if (HasWord(classes, "PRINTER")) facts.isPrinter = true;
}

void Complete(DeviceFacts& facts, const DeviceFacts& more) {
    for (const NetworkAddress& address : more.addresses) {
        const bool isKnown = std::ranges::find(facts.addresses, address) != facts.addresses.end();
        if (!isKnown && facts.addresses.size() < mostAddresses) facts.addresses.push_back(address);
    }
    TakeIfEmpty(facts.localName, more.localName);
    TakeIfEmpty(facts.hardwareAddress, more.hardwareAddress);
    TakeIfEmpty(facts.uuid, more.uuid);
    if (more.name.witness > facts.name.witness) facts.name = more.name;
    TakeIfMissing(facts.isColour, more.isColour);
    TakeIfMissing(facts.hasFax, more.hasFax);
    TakeIfMissing(facts.canScan, more.canScan);
    TakeIfMissing(facts.ipp, more.ipp);
    facts.isPrinter = facts.isPrinter || more.isPrinter;
}

}  // namespace discovery
