// The answer to one HTTP request (RFC 9112), read as it comes in.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "standins/discovery/Bytes.h"

namespace discovery {

// A request that hands an IPP message over and wants the connection closed afterwards. The host goes with its
// port.
Bytes MakeHttpPost(std::string_view host, std::string_view path, BytesView message);

// Takes time in proportion to what it receives, in whatever pieces, and keeps one megabyte at most. Knows
// bodies whose length is told, that come in chunks, or that end with the connection; passes interim answers
// (100) over.
class HttpResponse {
public:
    // The next bytes of the connection, or its end.
    void Receive(BytesView bytes);
    void Close();

    bool HasReceived() const { return !received.empty(); }
    // Nothing that comes now changes anything.
    bool IsOver() const { return stage == Stage::Done || stage == Stage::Failed; }
    // The body of a whole answer of status 200.
    std::optional<Bytes> Body() const { return stage == Stage::Done ? std::optional(body) : std::nullopt; }

private:
    enum class Stage { Head, Counted, Chunks, UntilClosed, Done, Failed };

    // Each makes one step and returns false where it needs more bytes.
    bool Step();
    bool StepHead();
    bool StepCounted();
    bool StepChunk();
    void ReadHead(BytesView head);

    Bytes received;
    // What lies before it is done with.
    std::size_t position = 0;
    // How far after it the head is known to have no end.
    std::size_t searched = 0;
    std::size_t length = 0;
    Bytes body;
    Stage stage = Stage::Head;
};

}  // namespace discovery
