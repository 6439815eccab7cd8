#pragma once

#include <winsock2.h>
#include <ws2tcpip.h>

namespace korvel {

/// The network's own functions, whose few differences stand here.
using SocketNumber = SOCKET;
inline constexpr SocketNumber kNoSocket = INVALID_SOCKET;
using SocketCount = int;
inline constexpr int kNoPipeSignal = 0;

inline void startSockets() {
    WSADATA unused{};
    WSAStartup(MAKEWORD(2, 2), &unused);
}
inline void closeSocket(SocketNumber socket) { ::closesocket(socket); }

}  // namespace korvel
