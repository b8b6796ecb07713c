// Owners of the sockets' handles and of the library behind them.
#pragma once

#include <windows.h>
#include <winsock2.h>

#include <ws2tcpip.h>

#include "framework/Handles.h"
#include "standins/discovery/NetworkAddress.h"

namespace discovery {

struct SocketKind {
    using Handle = SOCKET;
    static SOCKET invalid() noexcept { return INVALID_SOCKET; }
    static void close(SOCKET socket) { closesocket(socket); }
};
using Socket = HandleOwner<SocketKind>;

struct SocketEventKind {
    using Handle = WSAEVENT;
    static WSAEVENT invalid() noexcept { return WSA_INVALID_EVENT; }
    static void close(WSAEVENT event) { WSACloseEvent(event); }
};
using SocketEvent = HandleOwner<SocketEventKind>;

// Sockets work as long as it lives.
class SocketLibrary {
public:
    SocketLibrary() {
        WSADATA data{};
        code = WSAStartup(MAKEWORD(2, 2), &data);
    }
    SocketLibrary(const SocketLibrary&) = delete;
    SocketLibrary& operator=(const SocketLibrary&) = delete;
    ~SocketLibrary() {
        if (code == 0) WSACleanup();
    }

    // 0, or the system's code of why there are no sockets.
    DWORD Code() const { return static_cast<DWORD>(code); }

private:
    int code;
};

// An address as the system takes it.
struct SocketAddress {
    sockaddr_storage storage{};
    int length = 0;

    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&storage); }
};
SocketAddress MakeSocketAddress(const NetworkAddress& address, std::uint16_t port);

// An address as the system gives it, and its port; the empty address for one that is neither IPv4 nor IPv6.
NetworkAddress AddressOf(const sockaddr* address);
std::uint16_t PortOf(const sockaddr* address);

}  // namespace discovery
