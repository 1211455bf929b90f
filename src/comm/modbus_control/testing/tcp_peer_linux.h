// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <array>
#include <cstring>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace zorvane::testing {

/// A port of this computer, on the loopback, with one client; the test holds the far end.
class Tcp_Peer {
  public:
    Tcp_Peer() { plug(); }
    Tcp_Peer(const Tcp_Peer&) = delete;
    Tcp_Peer& operator=(const Tcp_Peer&) = delete;
    ~Tcp_Peer() { unplug(); }

    [[nodiscard]] std::string hostAndPort() const { return "127.0.0.1:" + std::to_string(port_); }
    [[nodiscard]] std::uint16_t port() const { return port_; }
    [[nodiscard]] int listener() const { return listener_; }

    /// At the same port as before.
    void plug() {
        listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const int on = 1;
        ::setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(port_);
        socklen_t size = sizeof address;
        auto* const plain = reinterpret_cast<sockaddr*>(&address);
        const bool listens = ::bind(listener_, plain, size) == 0 && ::listen(listener_, 4) == 0 &&
                             ::getsockname(listener_, plain, &size) == 0;
        if (!listens) throw std::runtime_error("listen");
        port_ = ntohs(address.sin_port);
    }
    void unplug() {
        hangUp();
        if (listener_ >= 0) ::close(listener_);
        listener_ = -1;
    }
    /// Closes the connection and goes on listening.
    void hangUp() {
        if (client_ >= 0) ::close(client_);
        client_ = -1;
    }
    /// The connection, which is waited for up to two seconds.
    int client() {
        pollfd wait{listener_, POLLIN, 0};
        if (client_ < 0 && ::poll(&wait, 1, 2000) == 1) accept();
        if (client_ < 0) throw std::runtime_error("no client");
        return client_;
    }

    /// Takes the newest of the clients that wait; the others are dropped.
    void takeNewest() {
        pollfd wait{listener_, POLLIN, 0};
        while (::poll(&wait, 1, 0) == 1) {
            hangUp();
            accept();
        }
    }

    void send(Byte_View bytes) {
        if (::send(client(), bytes.data(), bytes.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(bytes.size()))
            throw std::runtime_error("send");
    }
    /// Waits up to two seconds for so many bytes.
    [[nodiscard]] Byte_Array receive(std::size_t count) {
        Byte_Array bytes;
        while (bytes.size() < count) {
            pollfd wait{client(), POLLIN, 0};
            if (::poll(&wait, 1, 2000) <= 0) break;
            std::array<std::uint8_t, 512> part{};
            const ssize_t got = ::read(client_, part.data(), part.size());
            if (got <= 0) break;
            bytes.insert(bytes.end(), part.begin(), part.begin() + got);
        }
        return bytes;
    }

    /// A port at which nothing listens just now.
    static std::uint16_t unusedPort() { return Tcp_Peer().port_; }

  private:
    /// What is sent goes out at once.
    void accept() {
        client_ = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        const int on = 1;
        ::setsockopt(client_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    }

    int listener_ = -1;
    int client_ = -1;
    std::uint16_t port_ = 0; ///< 0: the system chooses
};

} // namespace zorvane::testing
