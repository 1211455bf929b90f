// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/line/line_port.h"
#include "simulator/wire/unique_fd_linux.h"

#include <string>

namespace zorvane::simulator {

/// A pseudo-terminal whose client side can be opened under a link's name. The link replaces an older one of
/// that name; it goes when the object does. Throws `std::runtime_error` when the terminal or the link can't
/// be made, or when something other than a link has the name.
class Pseudo_Terminal : public Line_Port {
  public:
    explicit Pseudo_Terminal(std::string link);
    Pseudo_Terminal(const Pseudo_Terminal&) = delete;
    Pseudo_Terminal& operator=(const Pseudo_Terminal&) = delete;
    ~Pseudo_Terminal() override;

    [[nodiscard]] int fd() const override { return master_.get(); }
    [[nodiscard]] int watchFd() const override { return watch_.get(); }
    [[nodiscard]] bool clientsChanged() override;
    void unplug() override;
    void plugIn() override;

  private:
    void openPair();
    void makeLink() const;
    void removeLink() const noexcept;

    std::string link_;
    std::string client_; ///< the client side's device
    Unique_Fd master_;
    Unique_Fd held_; ///< the client side, held open so that clients may come and go
    Unique_Fd watch_;
    int clients_ = 0;
};

} // namespace zorvane::simulator
