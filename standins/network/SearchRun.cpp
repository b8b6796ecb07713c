#include "standins/network/SearchRun.h"

#include <algorithm>
#include <array>
#include <utility>

namespace discovery {

namespace {

constexpr std::size_t longestPacket = 65536;
// What is read before the clock and the cancel are looked at again.
constexpr int packetsPerTurn = 1000;
constexpr int piecesPerTurn = 16;
// Neighbours are not to be asked beyond the link (RFC 6762 wants this number both ways).
constexpr DWORD hopLimit = 255;
// Room for the questions of a sweep that wait for neighbours, where the system grants as much.
constexpr DWORD sweepRoom = 1024 * 1024;
constexpr DWORD yes = 1;

template <typename Value>
void SetOption(SOCKET socket, int level, int option, const Value& value) {
    setsockopt(socket, level, option, reinterpret_cast<const char*>(&value), sizeof value);
}

Socket OpenDatagramSocket(const NetworkAddress& own, int family) {
    Socket opened(socket(family, SOCK_DGRAM, IPPROTO_UDP));
    if (!opened) return opened;
    if (family == AF_INET6) SetOption(opened.get(), IPPROTO_IPV6, IPV6_V6ONLY, yes);
    const SocketAddress address = MakeSocketAddress(own, 0);
    if (bind(opened.get(), address.get(), address.length) != 0) opened.reset();
    return opened;
}

NetworkAddress Unspecified(int family) {
    return family == AF_INET6 ? NetworkAddress(std::array<std::uint8_t, 16>{}) : NetworkAddress(0);
}

}  // namespace

SearchRun::SearchRun(const std::vector<LocalLink>& localLinks)
    : activity(WSACreateEvent()), buffer(longestPacket), began(std::chrono::steady_clock::now()) {
    for (std::size_t index = 0; index < localLinks.size(); ++index) OpenForLink(localLinks[index], index);
    for (const int family : {AF_INET, AF_INET6}) {
        Keep(OpenDatagramSocket(Unspecified(family), family), anyLink, family == AF_INET6);
    }
    Socket sweep = OpenDatagramSocket(Unspecified(AF_INET), AF_INET);
    SetOption(sweep.get(), SOL_SOCKET, SO_SNDBUF, sweepRoom);
    Keep(std::move(sweep), sweepLink, false);
}

void SearchRun::OpenForLink(const LocalLink& link, std::size_t index) {
    for (const NetworkAddress& own : link.addresses) {
        Socket opened = OpenDatagramSocket(own, AF_INET);
        SetOption(opened.get(), SOL_SOCKET, SO_BROADCAST, yes);
        SetOption(opened.get(), IPPROTO_IP, IP_MULTICAST_IF, htonl(own.IpV4()));
        SetOption(opened.get(), IPPROTO_IP, IP_MULTICAST_TTL, hopLimit);
        Keep(std::move(opened), index, false);
    }
    if (link.ipV6Index == 0) return;
    Socket opened = OpenDatagramSocket(Unspecified(AF_INET6), AF_INET6);
    SetOption(opened.get(), IPPROTO_IPV6, IPV6_MULTICAST_IF, link.ipV6Index);
    SetOption(opened.get(), IPPROTO_IPV6, IPV6_MULTICAST_HOPS, hopLimit);
    Keep(std::move(opened), index, true);
}

void SearchRun::Keep(Socket socket, std::size_t link, bool isIpV6) {
    if (!socket || WSAEventSelect(socket.get(), activity.get(), FD_READ) != 0) return;
    sockets.push_back({.socket = std::move(socket), .link = link, .isIpV6 = isIpV6});
}

Time SearchRun::Now() const {
    return std::chrono::duration_cast<Time>(std::chrono::steady_clock::now() - began);
}

bool SearchRun::Run(Search& search, HANDLE cancelled) {
    const std::array<HANDLE, 2> events{cancelled, activity.get()};
    while (!search.IsOver(Now())) {
        for (const Datagram& datagram : search.TakeDatagrams(Now())) Send(datagram);
        for (const StreamQuestion& question : search.TakeStreams()) OpenStream(search, question);
        const Time now = Now();
        const auto wait = static_cast<DWORD>(std::max(search.NextDue(now) - now, Time(1)).count());
        const DWORD signal = WSAWaitForMultipleEvents(events.size(), events.data(), FALSE, wait, FALSE);
        if (signal == WSA_WAIT_EVENT_0) return false;
        if (signal == WSA_WAIT_FAILED) break;
        WSAResetEvent(activity.get());
        ReceiveDatagrams(search);
        ServeStreams(search);
    }
    return true;
}

// By design: what cannot be sent now is not sent, as if the network had lost it. The search repeats itself.
void SearchRun::Send(const Datagram& datagram) const {
    const SocketAddress peer = MakeSocketAddress(datagram.peer, datagram.port);
    for (const LinkSocket& each : sockets) {
        if (each.link != datagram.link || each.isIpV6 != datagram.peer.IsIpV6()) continue;
        sendto(each.socket.get(), datagram.bytes.data(), static_cast<int>(datagram.bytes.size()), 0,
               peer.get(), peer.length);
        // A broadcast goes out of each address that the link has, so that each of its subnets is asked.
        if (datagram.link == anyLink || datagram.link == sweepLink) return;
    }
}

void SearchRun::ReceiveDatagrams(Search& search) {
    for (const LinkSocket& each : sockets) {
        for (int count = 0; count < packetsPerTurn && ReceiveDatagram(search, each); ++count) {
        }
    }
}

bool SearchRun::ReceiveDatagram(Search& search, const LinkSocket& from) {
    sockaddr_storage peer{};
    int peerLength = sizeof peer;
    auto* const address = reinterpret_cast<sockaddr*>(&peer);
    const int size =
        recvfrom(from.socket.get(), buffer.data(), static_cast<int>(buffer.size()), 0, address, &peerLength);
    // A host that has told the system that nobody listens there is not the end of what others answer.
    if (size < 0) return WSAGetLastError() == WSAECONNRESET;
    search.Receive({.peer = AddressOf(address),
                    .port = PortOf(address),
                    .link = from.link,
                    .bytes = Bytes(buffer.data(), static_cast<std::size_t>(size))},
                   Now());
    return true;
}

void SearchRun::OpenStream(Search& search, const StreamQuestion& question) {
    const SocketAddress peer = MakeSocketAddress(question.peer, question.port);
    Socket opened(socket(question.peer.IsIpV6() ? AF_INET6 : AF_INET, SOCK_STREAM, IPPROTO_TCP));
    const bool isListening = opened && WSAEventSelect(opened.get(), activity.get(),
                                                      FD_CONNECT | FD_READ | FD_WRITE | FD_CLOSE) == 0;
    const bool isOpening = isListening && (connect(opened.get(), peer.get(), peer.length) == 0 ||
                                           WSAGetLastError() == WSAEWOULDBLOCK);
    if (!isOpening) {
        search.CloseStream(question.number, Now());
        return;
    }
    streams[question.number] = {.socket = std::move(opened), .unsent = question.request};
}

void SearchRun::ServeStreams(Search& search) {
    for (auto each = streams.begin(); each != streams.end();) {
        if (ServeStream(search, each->first, each->second)) {
            ++each;
            continue;
        }
        search.CloseStream(each->first, Now());
        each = streams.erase(each);
    }
}

bool SearchRun::ServeStream(Search& search, std::size_t number, Stream& stream) {
    WSANETWORKEVENTS events{};
    if (WSAEnumNetworkEvents(stream.socket.get(), nullptr, &events) != 0) return false;
    const auto failed = [&](int bit) { return events.iErrorCode[bit] != 0; };
    if ((events.lNetworkEvents & FD_CONNECT) != 0 && failed(FD_CONNECT_BIT)) return false;
    if ((events.lNetworkEvents & FD_WRITE) != 0 && !SendRest(stream)) return false;
    for (int count = 0; count < piecesPerTurn; ++count) {
        const int size = recv(stream.socket.get(), buffer.data(), static_cast<int>(buffer.size()), 0);
        if (size < 0) return WSAGetLastError() == WSAEWOULDBLOCK || WSAGetLastError() == WSAENOTCONN;
        if (size == 0) return false;
        if (!search.ReceiveStream(number, BytesView(buffer.data(), static_cast<std::size_t>(size)), Now())) {
            return false;
        }
    }
    return true;
}

bool SearchRun::SendRest(Stream& stream) {
    while (!stream.unsent.empty()) {
        const int size =
            send(stream.socket.get(), stream.unsent.data(), static_cast<int>(stream.unsent.size()), 0);
        if (size < 0) return WSAGetLastError() == WSAEWOULDBLOCK;
        stream.unsent.erase(0, static_cast<std::size_t>(size));
    }
    return true;
}

}  // namespace discovery
