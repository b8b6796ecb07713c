// Carries a search out: sends what it wants sent, hands it what comes in.
#pragma once

#include <chrono>
#include <map>
#include <vector>

#include "standins/discovery/Search.h"
#include "standins/network/LocalLinks.h"
#include "standins/network/Sockets.h"

namespace discovery {

// All sockets of a search. They belong to one thread; nothing of them blocks.
class SearchRun {
public:
    // Opens a socket for each link and each version of the protocol, and one of each for hosts that lie
    // elsewhere. What cannot be opened is done without.
    explicit SearchRun(const std::vector<LocalLink>& localLinks);

    // Returns when the search is over or the event is set, and in the latter case false.
    bool Run(Search& search, HANDLE cancelled);

private:
    struct LinkSocket {
        Socket socket;
        std::size_t link = anyLink;
        bool isIpV6 = false;
    };
    struct Stream {
        Socket socket;
        Bytes unsent;
    };

    Time Now() const;
    void OpenForLink(const LocalLink& link, std::size_t index);
    void Keep(Socket socket, std::size_t link, bool isIpV6);
    void Send(const Datagram& datagram) const;
    void OpenStream(Search& search, const StreamQuestion& question);
    void ReceiveDatagrams(Search& search);
    bool ReceiveDatagram(Search& search, const LinkSocket& from);
    void ServeStreams(Search& search);
    // Returns false where the connection is over.
    bool ServeStream(Search& search, std::size_t number, Stream& stream);
    static bool SendRest(Stream& stream);

    SocketEvent activity;
    std::vector<LinkSocket> sockets;
    std::map<std::size_t, Stream> streams;
    std::vector<char> buffer;
    std::chrono::steady_clock::time_point began;
};

}  // namespace discovery
