// SPDX-License-Identifier: MIT
#include "simulator/line/tcp_line.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <netdb.h>
#include <stdexcept>
#include <system_error>

namespace zorvane::simulator {

namespace {

[[noreturn]] void failAt(const std::string& what) {
    throw std::runtime_error(what + ": " + std::generic_category().message(errno));
}

using Addresses = std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)>;

/// Numbers only: a name could lead anywhere.
Addresses lookUp(const std::string& address, std::uint16_t port) {
    addrinfo hints{};
    hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV | AI_PASSIVE;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (::getaddrinfo(address.c_str(), std::to_string(port).c_str(), &hints, &found) != 0)
        throw std::runtime_error(address + " is no address: write a number, such as 127.0.0.1");
    return {found, &::freeaddrinfo};
}

std::uint16_t portOf(int socket) {
    sockaddr_storage bound{};
    socklen_t size = sizeof bound;
    if (::getsockname(socket, reinterpret_cast<sockaddr*>(&bound), &size) != 0) failAt("socket");
    if (bound.ss_family == AF_INET6) {
        sockaddr_in6 six{};
        std::memcpy(&six, &bound, sizeof six);
        return ntohs(six.sin6_port);
    }
    sockaddr_in four{};
    std::memcpy(&four, &bound, sizeof four);
    return ntohs(four.sin_port);
}

void turnOn(int socket, int level, int option) {
    const int on = 1;
    if (::setsockopt(socket, level, option, &on, sizeof on) != 0) failAt("socket");
}

} // namespace

Tcp_Line::Tcp_Line(std::string address, std::uint16_t port) : address_(std::move(address)), port_(port) {
    plugIn();
}

std::string Tcp_Line::hostAndPort() const {
    const bool six = address_.find(':') != std::string::npos;
    return (six ? "[" + address_ + "]" : address_) + ":" + std::to_string(port_);
}

bool isLoopback(const std::string& address) { return address.starts_with("127.") || address == "::1"; }

void Tcp_Line::plugIn() {
    const Addresses found = lookUp(address_, port_);
    listener_ = Unique_Fd(::socket(found->ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!listener_.open()) failAt("socket");
    turnOn(listener_.get(), SOL_SOCKET, SO_REUSEADDR);
    if (::bind(listener_.get(), found->ai_addr, found->ai_addrlen) != 0 || ::listen(listener_.get(), 1) != 0)
        failAt(hostAndPort());
    port_ = portOf(listener_.get());
}

void Tcp_Line::unplug() {
    client_.reset();
    listener_.reset();
}

bool Tcp_Line::clientsChanged() {
    client_ = Unique_Fd(::accept4(listener_.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!client_.open()) return false;
    turnOn(client_.get(), IPPROTO_TCP, TCP_NODELAY);
    return true;
}

bool Tcp_Line::clientLeft() {
    client_.reset();
    return true;
}

} // namespace zorvane::simulator
