// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>
#include <utility>

namespace zorvane::simulator {

/// Owns a file descriptor; -1 is none.
class Unique_Fd {
  public:
    Unique_Fd() = default;
    explicit Unique_Fd(int fd) noexcept : fd_(fd) {}
    Unique_Fd(Unique_Fd&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    Unique_Fd& operator=(Unique_Fd&& other) noexcept {
        if (this != &other) {
            reset();
            fd_ = std::exchange(other.fd_, -1);
        }
        return *this;
    }
    Unique_Fd(const Unique_Fd&) = delete;
    Unique_Fd& operator=(const Unique_Fd&) = delete;
    ~Unique_Fd() { reset(); }

    [[nodiscard]] int get() const noexcept { return fd_; }
    [[nodiscard]] bool open() const noexcept { return fd_ >= 0; }
    void reset() noexcept {
        if (fd_ >= 0) ::close(fd_);
        fd_ = -1;
    }

  private:
    int fd_ = -1;
};

} // namespace zorvane::simulator
