// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_socket_port.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace zorvane {

namespace {

constexpr int idleSeconds = 5;    ///< of silence before the first question
constexpr int betweenSeconds = 2; ///< from one question to the next
constexpr int questions = 3;      ///< without an answer
constexpr int unheardMs = 10000;  ///< that sent bytes may go unconfirmed

void set(std::intptr_t socket, int level, int option, int value) {
    static_cast<void>(::setsockopt(static_cast<int>(socket), level, option, &value, sizeof value));
}

} // namespace

void noticeSilentHost(std::intptr_t socket) {
    set(socket, SOL_SOCKET, SO_KEEPALIVE, 1);
    set(socket, IPPROTO_TCP, TCP_KEEPIDLE, idleSeconds);
    set(socket, IPPROTO_TCP, TCP_KEEPINTVL, betweenSeconds);
    set(socket, IPPROTO_TCP, TCP_KEEPCNT, questions);
    set(socket, IPPROTO_TCP, TCP_USER_TIMEOUT, unheardMs);
}

} // namespace zorvane
