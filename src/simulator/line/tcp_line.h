// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/line/line_port.h"
#include "simulator/wire/unique_fd_linux.h"

#include <cstdint>
#include <string>

namespace zorvane::simulator {

/// Whether only programs of this computer reach what listens at the address.
[[nodiscard]] bool isLoopback(const std::string& address);

/// A port on a network, for one client at a time: another waits until the first has gone. Throws
/// `std::runtime_error` when nothing can listen there.
class Tcp_Line : public Line_Port {
  public:
    /// Listens at the address, an IPv4 or IPv6 number; the system chooses the port for 0.
    Tcp_Line(std::string address, std::uint16_t port);

    /// "127.0.0.1:43211", "[::1]:43211".
    [[nodiscard]] std::string hostAndPort() const;

    [[nodiscard]] int fd() const override { return client_.get(); }
    [[nodiscard]] int watchFd() const override { return client_.open() ? -1 : listener_.get(); }
    [[nodiscard]] bool clientsChanged() override;
    [[nodiscard]] bool clientLeft() override;
    void unplug() override;
    void plugIn() override;

  private:
    std::string address_;
    std::uint16_t port_;
    Unique_Fd listener_;
    Unique_Fd client_;
};

} // namespace zorvane::simulator
