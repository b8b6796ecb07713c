#include "standins/discovery/IppPoll.h"

#include <array>
#include <utility>

#include "standins/discovery/IppMessage.h"

namespace discovery {

namespace {

constexpr std::size_t mostOpen = 16;
constexpr std::uint16_t ippPort = 631;
constexpr auto usualPaths = std::to_array<std::string_view>({"/ipp/print", "/ipp/printer", "/ipp", "/"});

constexpr std::string_view makeAndModel = "printer-make-and-model";
constexpr std::string_view deviceIdAttribute = "printer-device-id";
constexpr std::string_view colourSupported = "color-supported";
constexpr std::string_view uuid = "printer-uuid";
constexpr std::string_view features = "ipp-features-supported";

std::string HostOf(const NetworkAddress& address) {
    if (!address.IsIpV6()) return address.ToText();
    const std::string text = address.ToText();
    return "[" + text.substr(0, text.find('%')) + "]";
}

Bytes RequestFor(const NetworkAddress& peer, const IppPlace& place, std::size_t number) {
    const std::string host = HostOf(peer) + ":" + std::to_string(place.port);
    const Bytes message =
        EncodeIppQuestion(static_cast<std::int32_t>(number), "ipp://" + host + place.path,
                          {makeAndModel, deviceIdAttribute, colourSupported, uuid, features});
    return MakeHttpPost(host, place.path, message);
}

DeviceFacts FactsOf(const IppAttributes& attributes) {
    constexpr std::string_view uuidStart = "urn:uuid:";
    const KeyedTexts deviceId = ReadDeviceId(FirstValue(attributes, deviceIdAttribute));
    DeviceFacts facts;
    facts.isPrinter = true;
    facts.name = NameOf(FirstValue(attributes, makeAndModel), FirstOf(deviceId, {"mfg"}), Witness::Printer);
    Complete(facts, {.name = NameOf(deviceId)});
    TakeClasses(deviceId, facts);
    const std::string colour = FirstValue(attributes, colourSupported);
    if (!colour.empty()) facts.isColour = colour == "true";
    facts.uuid = FirstValue(attributes, uuid);
    if (facts.uuid.starts_with(uuidStart)) facts.uuid.erase(0, uuidStart.size());
    const auto told = attributes.find(features);
    if (told == attributes.end()) return facts;
    for (const std::string& feature : told->second) {
        if (feature == "faxout") facts.hasFax = true;
        if (feature == "scan") facts.canScan = true;
    }
    return facts;
}

}  // namespace

void IppPoll::Ask(const NetworkAddress& host, const std::optional<IppPlace>& place) {
    if (!asked.insert(host).second) return;
    Question question{.peer = host};
    if (place) question.places.push_back(*place);
    if (!place) {
        for (const std::string_view path : usualPaths)
            question.places.push_back({ippPort, std::string(path)});
    }
    waiting.push_back(std::move(question));
}

void IppPoll::TakeDue(std::vector<StreamQuestion>& out) {
    while (!waiting.empty() && open.size() < mostOpen) {
        const std::size_t number = ++lastNumber;
        const Question& question = open.try_emplace(number, std::move(waiting.front())).first->second;
        waiting.pop_front();
        const IppPlace& place = question.places.front();
        out.push_back({.number = number,
                       .peer = question.peer,
                       .port = place.port,
                       .request = RequestFor(question.peer, place, number)});
    }
}

bool IppPoll::Receive(std::size_t number, BytesView bytes) {
    const auto question = open.find(number);
    if (question == open.end()) return false;
    question->second.response.Receive(bytes);
    return question->second.response.IsOver() && Conclude(number);
}

bool IppPoll::Close(std::size_t number) {
    const auto question = open.find(number);
    if (question == open.end()) return false;
    question->second.response.Close();
    return Conclude(number);
}

// Takes the answer of a question that is over; where it is none, the next path has its turn.
bool IppPoll::Conclude(std::size_t number) {
    Question question = std::move(open.extract(number).mapped());
    const std::optional<Bytes> body = question.response.Body();
    const auto attributes = body ? DecodeIppResponse(static_cast<std::int32_t>(number), *body) : std::nullopt;
    if (attributes) {
        DeviceFacts facts = FactsOf(*attributes);
        facts.addresses = {question.peer};
        answered.insert(question.peer);
        facts.ipp = question.places.front();
        found.push_back(std::move(facts));
        return true;
    }
    const bool hasSpoken = question.response.HasReceived();
    question.places.erase(question.places.begin());
    question.response = {};
    if (hasSpoken && !question.places.empty()) waiting.push_back(std::move(question));
    return false;
}

void IppPoll::Collect(FoundDevices& devices) const {
    for (const DeviceFacts& facts : found) devices.Add(facts);
}

}  // namespace discovery
