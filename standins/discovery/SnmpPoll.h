// Finds printers by asking for what printers tell about themselves in SNMP: the tables of devices (RFC 2790),
// of printers (RFC 3805), of ports (PWG 5107.1) and of interfaces (RFC 2863).
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "standins/discovery/FoundDevices.h"
#include "standins/discovery/SnmpMessage.h"
#include "standins/discovery/Traffic.h"

namespace discovery {

// A first question goes out without a trace: its answer is known by a request id that follows from the
// address and a secret. So a sweep of thousands costs no memory, and an answer that nobody asked for costs
// nothing. Who answers is asked on, row by row, in a conversation of its own; each is bounded in rows and
// tries, and so is their number.
class SnmpPoll {
public:
    SnmpPoll(Bytes communityName, std::uint32_t secretNumber)
        : community(std::move(communityName)), secret(secretNumber) {}

    // The first question to a host, or to all of a subnet through its broadcast address on a link. Devices
    // that know only version 1 stay silent at version 2c.
    Datagram FirstQuestion(const NetworkAddress& address, SnmpVersion version,
                           std::size_t link = anyLink) const;
    // From here on what came through that broadcast address counts, if the subnet holds the sender.
    void ExpectBroadcast(const Subnet& subnet) { broadcasts.push_back(subnet); }

    // Returns true if somebody answered who was asked.
    bool Receive(const Datagram& answer);
    // What conversations have to send by now.
    void TakeDue(Time now, std::vector<Datagram>& out);
    // When TakeDue has something next; nothing where no conversation is under way.
    std::optional<Time> NextDue() const;
    bool IsIdle() const { return openConversations == 0; }
    bool HasAnswered(const NetworkAddress& address) const { return conversations.contains(address); }

    // All that is known of those who answered.
    void Collect(FoundDevices& devices) const;

private:
    // One column of a table, read row by row.
    struct Column {
        Oid last;
        bool isDone = false;
    };
    struct Conversation {
        SnmpVersion version = SnmpVersion::V2c;
        std::size_t link = anyLink;
        std::vector<Column> columns;
        // The columns that the open question asks for, in order; none where no question is open.
        std::vector<std::size_t> asked;
        std::int32_t requestId = 0;
        int tries = 0;
        int rows = 0;
        // The row of the table of devices that is the printer.
        std::uint32_t printerRow = 0;
        DeviceFacts facts;
    };
    // A question that is sent once more unless its answer has come by then.
    struct Reminder {
        Time due;
        NetworkAddress peer;
        std::int32_t requestId;
    };

    std::int32_t Cookie(const NetworkAddress& address) const;
    bool IsFirstAnswer(const NetworkAddress& peer, std::int32_t requestId) const;
    Conversation* ConversationOf(const Datagram& answer, const SnmpMessage& message);
    static void TakeAnswer(Conversation& conversation, const SnmpMessage& message);
    static void TakeError(Conversation& conversation, const SnmpMessage& message);
    static void TakeRow(Conversation& conversation, std::size_t column, const SnmpBinding& binding);
    void AskOn(const NetworkAddress& peer, Conversation& conversation);
    Datagram Question(const NetworkAddress& peer, const Conversation& conversation) const;

    Bytes community;
    std::uint32_t secret;
    std::vector<Subnet> broadcasts;
    std::unordered_map<NetworkAddress, Conversation> conversations;
    // Those who answered, in the order in which they did.
    std::vector<NetworkAddress> order;
    // Those whose next question is still to be sent.
    std::vector<NetworkAddress> ready;
    // In the order of their times, which are all the same length after the sending.
    std::deque<Reminder> reminders;
    std::int32_t lastRequestId = 0;
    std::size_t openConversations = 0;
};

}  // namespace discovery
