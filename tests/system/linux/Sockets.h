#pragma once

#include <arpa/inet.h>
#include <cstddef>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace korvel {

/// The network's own functions, whose few differences stand here.
using SocketNumber = int;
inline constexpr SocketNumber kNoSocket = -1;
using SocketCount = std::size_t;
/// Who writes to a far end that is gone hears of it by the result alone.
inline constexpr int kNoPipeSignal = MSG_NOSIGNAL;

inline void startSockets() {}
inline void closeSocket(SocketNumber socket) { ::close(socket); }

}  // namespace korvel
