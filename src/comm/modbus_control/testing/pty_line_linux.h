// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <termios.h>
#include <unistd.h>

namespace zorvane::testing {

/// A pseudo-terminal under a path of its own; the test holds the far end.
class Pty_Line {
  public:
    Pty_Line() {
        std::string pattern = (std::filesystem::temp_directory_path() / "zorvane-line-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp");
        folder_ = pattern;
        plug();
    }
    Pty_Line(const Pty_Line&) = delete;
    Pty_Line& operator=(const Pty_Line&) = delete;
    ~Pty_Line() {
        unplug();
        std::filesystem::remove_all(folder_);
    }

    [[nodiscard]] std::string path() const { return (folder_ / "line").string(); }
    [[nodiscard]] int farEnd() const { return far_; }

    void plug() {
        far_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        if (far_ < 0 || ::grantpt(far_) != 0 || ::unlockpt(far_) != 0) throw std::runtime_error("pty");
        std::array<char, 128> name{};
        if (::ptsname_r(far_, name.data(), name.size()) != 0) throw std::runtime_error("ptsname");
        std::filesystem::create_symlink(name.data(), path());
    }
    void unplug() {
        if (far_ < 0) return;
        std::filesystem::remove(path());
        ::close(far_);
        far_ = -1;
    }

    void send(Byte_View bytes) const {
        if (::write(far_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
            throw std::runtime_error("pty write");
        }
    }
    /// Waits up to two seconds for so many bytes.
    [[nodiscard]] Byte_Array receive(std::size_t count) const {
        Byte_Array bytes;
        while (bytes.size() < count) {
            pollfd wait{far_, POLLIN, 0};
            if (::poll(&wait, 1, 2000) <= 0) break;
            std::array<std::uint8_t, 512> part{};
            const ssize_t got = ::read(far_, part.data(), part.size());
            if (got <= 0) break;
            bytes.insert(bytes.end(), part.begin(), part.begin() + got);
        }
        return bytes;
    }

  private:
    std::filesystem::path folder_;
    int far_ = -1;
};

} // namespace zorvane::testing
