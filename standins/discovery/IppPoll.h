// Asks printers by IPP what they are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "standins/discovery/FoundDevices.h"
#include "standins/discovery/HttpResponse.h"
#include "standins/discovery/Traffic.h"

namespace discovery {

// A connection to open, and what to send as soon as it stands. Its number comes back with all that it brings.
struct StreamQuestion {
    std::size_t number = 0;
    NetworkAddress peer;
    std::uint16_t port = 0;
    Bytes request;
};

// A printer that does not say where it speaks IPP is tried at the usual paths, one after the other. Few
// connections are open at a time.
class IppPoll {
public:
    void Ask(const NetworkAddress& host, const std::optional<IppPlace>& place);
    bool HasAnswered(const NetworkAddress& host) const { return answered.contains(host); }
    // The connections to open by now.
    void TakeDue(std::vector<StreamQuestion>& out);
    // What came through a connection, and its end, whether it was ever opened or not. Returns true if a
    // printer answered.
    bool Receive(std::size_t number, BytesView bytes);
    bool Close(std::size_t number);
    bool IsOpen(std::size_t number) const { return open.contains(number); }
    bool IsIdle() const { return open.empty() && waiting.empty(); }
    // All that is known of those who answered.
    void Collect(FoundDevices& devices) const;

private:
    struct Question {
        NetworkAddress peer;
        std::vector<IppPlace> places;
        HttpResponse response;
    };

    bool Conclude(std::size_t number);

    std::set<NetworkAddress> asked;
    std::set<NetworkAddress> answered;
    std::deque<Question> waiting;
    std::map<std::size_t, Question> open;
    std::size_t lastNumber = 0;
    std::vector<DeviceFacts> found;
};

}  // namespace discovery
