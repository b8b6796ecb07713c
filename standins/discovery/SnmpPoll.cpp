#include "standins/discovery/SnmpPoll.h"

#include <algorithm>
#include <array>

#include "standins/discovery/AsciiText.h"

namespace discovery {

namespace {

constexpr std::size_t mostConversations = 10000;
// A conversation has some ten questions; where every fifth packet is lost, one in 3,500 stays without an
// answer.
constexpr int mostTries = 8;
// Printers have a few rows in each table; a walk that goes in circles ends here as well.
constexpr int mostRows = 16;
constexpr Time patience{150};
// Request ids of first questions are below, those of conversations above it.
constexpr std::int32_t firstConversationId = 0x40000000;

enum Place : std::size_t { deviceType, deviceDescription, deviceId, hardwareAddress, colorant };

// In the order of the places.
const std::array<Oid, 5>& Columns() {
    static const std::array<Oid, 5> columns{{
        {1, 3, 6, 1, 2, 1, 25, 3, 2, 1, 2},
        {1, 3, 6, 1, 2, 1, 25, 3, 2, 1, 3},
        {1, 3, 6, 1, 4, 1, 2699, 1, 2, 1, 2, 1, 1, 3},
        {1, 3, 6, 1, 2, 1, 2, 2, 1, 6},
        {1, 3, 6, 1, 2, 1, 43, 12, 1, 1, 4},
    }};
    return columns;
}

const Oid& PrinterType() {
    static const Oid type{1, 3, 6, 1, 2, 1, 25, 3, 1, 5};
    return type;
}

const Oid& ModemType() {
    static const Oid type{1, 3, 6, 1, 2, 1, 25, 3, 1, 14};
    return type;
}

bool IsBelow(const Oid& name, const Oid& column) {
    return name.size() > column.size() && std::equal(column.begin(), column.end(), name.begin());
}

const Bytes& TextOf(const SnmpValue& value) {
    static const Bytes none;
    const Bytes* const text = std::get_if<Bytes>(&value);
    return text == nullptr ? none : *text;
}

bool IsHardwareAddress(const Bytes& bytes) {
    constexpr std::size_t size = 6;
    return bytes.size() == size && std::ranges::any_of(bytes, [](char byte) { return byte != '\0'; });
}

void TakeDeviceId(DeviceFacts& facts, const Bytes& text) {
    const KeyedTexts deviceId = ReadDeviceId(text);
    DeviceFacts told{.name = NameOf(deviceId)};
    told.isPrinter = told.name.witness != Witness::None;
    TakeClasses(deviceId, told);
    Complete(facts, told);
}

// Black and white paint no colour, and "unknown" says nothing.
void TakeColorant(DeviceFacts& facts, std::string_view word) {
    constexpr auto colours =
        std::to_array<std::string_view>({"cyan", "magenta", "yellow", "red", "green", "blue", "orange"});
    const auto names = [&](std::string_view colour) { return HoldsInAnyCase(word, colour); };
    if (std::ranges::any_of(colours, names)) facts.isColour = true;
    if (!facts.isColour && names("black")) facts.isColour = false;
}

}  // namespace

Datagram SnmpPoll::FirstQuestion(const NetworkAddress& address, SnmpVersion version, std::size_t link) const {
    SnmpMessage message{.version = version, .community = community, .requestId = Cookie(address)};
    for (const Oid& column : Columns()) message.bindings.push_back({.name = column, .value = {}});
    return {.peer = address, .port = snmpPort, .link = link, .bytes = EncodeSnmpQuestion(message)};
}

std::int32_t SnmpPoll::Cookie(const NetworkAddress& address) const {
    std::uint64_t mixed = secret;
    for (const std::uint8_t octet : address.Octets()) mixed = (mixed ^ octet) * 0x100000001B3;
    mixed ^= mixed >> 32;
    return static_cast<std::int32_t>(mixed % (firstConversationId - 1)) + 1;
}

bool SnmpPoll::IsFirstAnswer(const NetworkAddress& peer, std::int32_t requestId) const {
    if (requestId == Cookie(peer)) return true;
    return std::ranges::any_of(broadcasts, [&](const Subnet& subnet) {
        return subnet.Contains(peer) && requestId == Cookie(subnet.Broadcast());
    });
}

// The conversation that the answer belongs to, a new one for a first answer; null for what nobody asked.
SnmpPoll::Conversation* SnmpPoll::ConversationOf(const Datagram& answer, const SnmpMessage& message) {
    const auto found = conversations.find(answer.peer);
    if (found != conversations.end()) {
        Conversation& open = found->second;
        return !open.asked.empty() && open.requestId == message.requestId ? &open : nullptr;
    }
    if (conversations.size() == mostConversations || !IsFirstAnswer(answer.peer, message.requestId))
        return nullptr;
    order.push_back(answer.peer);
    Conversation& conversation = conversations[answer.peer];
    conversation.version = message.version;
    conversation.link = answer.link == sweepLink ? anyLink : answer.link;
    ++openConversations;
    conversation.facts.addresses = {answer.peer};
    for (const Oid& column : Columns()) {
        conversation.asked.push_back(conversation.columns.size());
        conversation.columns.push_back({.last = column});
    }
    return &conversation;
}

bool SnmpPoll::Receive(const Datagram& answer) {
    if (answer.port != snmpPort) return false;
    const std::optional<SnmpMessage> message = DecodeSnmpResponse(answer.bytes);
    if (!message || message->community != community) return false;
    Conversation* const conversation = ConversationOf(answer, *message);
    if (conversation == nullptr) return false;
    TakeAnswer(*conversation, *message);
    AskOn(answer.peer, *conversation);
    return true;
}

void SnmpPoll::TakeAnswer(Conversation& conversation, const SnmpMessage& message) {
    if (message.errorStatus != 0) {
        TakeError(conversation, message);
        return;
    }
    ++conversation.rows;
    for (std::size_t place = 0; place < conversation.asked.size(); ++place) {
        const std::size_t number = conversation.asked[place];
        Column& column = conversation.columns[number];
        const SnmpBinding* const binding =
            place < message.bindings.size() ? &message.bindings[place] : nullptr;
        const bool isRow =
            binding != nullptr && IsBelow(binding->name, Columns()[number]) && binding->name > column.last;
        if (isRow) {
            column.last = binding->name;
            TakeRow(conversation, number, *binding);
        }
        if (!isRow || conversation.rows == mostRows) column.isDone = true;
    }
}

// Version 1 refuses a whole question because of the one column that has nothing more.
void SnmpPoll::TakeError(Conversation& conversation, const SnmpMessage& message) {
    const std::int64_t index = message.errorIndex;
    if (index >= 1 && index <= static_cast<std::int64_t>(conversation.asked.size())) {
        conversation.columns[conversation.asked[static_cast<std::size_t>(index - 1)]].isDone = true;
        return;
    }
    // The device minds the question as a whole.
    for (Column& column : conversation.columns) column.isDone = true;
}

void SnmpPoll::TakeRow(Conversation& conversation, std::size_t column, const SnmpBinding& binding) {
    DeviceFacts& facts = conversation.facts;
    const Bytes& text = TextOf(binding.value);
    switch (column) {
        case Place::deviceType:
            if (binding.value == SnmpValue(ModemType())) facts.hasFax = true;
            if (conversation.printerRow == 0 && binding.value == SnmpValue(PrinterType())) {
                conversation.printerRow = binding.name.back();
                facts.isPrinter = true;
            }
            break;
        case Place::deviceDescription:
            if (binding.name.back() == conversation.printerRow) {
                Complete(facts, {.name = NameOf(text, {}, Witness::Description)});
            }
            break;
        case Place::deviceId:
            TakeDeviceId(facts, text);
            conversation.columns[column].isDone = !text.empty();
            break;
        case Place::hardwareAddress:
            if (IsHardwareAddress(text)) facts.hardwareAddress = text;
            conversation.columns[column].isDone = !facts.hardwareAddress.empty();
            break;
        case Place::colorant:
            facts.isPrinter = true;
            TakeColorant(facts, text);
            conversation.columns[column].isDone = facts.isColour.value_or(false);
            break;
        default:
            break;
    }
}

void SnmpPoll::AskOn(const NetworkAddress& peer, Conversation& conversation) {
    conversation.asked.clear();
    for (std::size_t number = 0; number < conversation.columns.size(); ++number) {
        if (!conversation.columns[number].isDone) conversation.asked.push_back(number);
    }
    if (conversation.asked.empty()) {
        --openConversations;
        return;
    }
    conversation.requestId = firstConversationId + lastRequestId++ % firstConversationId;
    conversation.tries = 0;
    ready.push_back(peer);
}

Datagram SnmpPoll::Question(const NetworkAddress& peer, const Conversation& conversation) const {
    SnmpMessage message{
        .version = conversation.version, .community = community, .requestId = conversation.requestId};
    for (const std::size_t number : conversation.asked) {
        message.bindings.push_back({.name = conversation.columns[number].last, .value = {}});
    }
    return {.peer = peer, .port = snmpPort, .link = conversation.link, .bytes = EncodeSnmpQuestion(message)};
}

void SnmpPoll::TakeDue(Time now, std::vector<Datagram>& out) {
    while (!reminders.empty() && reminders.front().due <= now) {
        const Reminder reminder = reminders.front();
        reminders.pop_front();
        const Conversation& conversation = conversations.at(reminder.peer);
        if (!conversation.asked.empty() && conversation.requestId == reminder.requestId)
            ready.push_back(reminder.peer);
    }
    for (const NetworkAddress& peer : std::exchange(ready, {})) {
        Conversation& conversation = conversations.at(peer);
        if (conversation.tries++ == mostTries) {
            conversation.asked.clear();
            --openConversations;
            continue;
        }
        out.push_back(Question(peer, conversation));
        reminders.push_back({.due = now + patience, .peer = peer, .requestId = conversation.requestId});
    }
}

std::optional<Time> SnmpPoll::NextDue() const {
    if (!ready.empty()) return Time::zero();
    // Reminders of questions that were answered are of no account.
    if (IsIdle() || reminders.empty()) return std::nullopt;
    return reminders.front().due;
}

void SnmpPoll::Collect(FoundDevices& devices) const {
    for (const NetworkAddress& peer : order) devices.Add(conversations.at(peer).facts);
}

}  // namespace discovery
