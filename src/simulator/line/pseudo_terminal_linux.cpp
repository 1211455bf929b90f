// SPDX-License-Identifier: MIT
#include "simulator/line/pseudo_terminal.h"

#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace zorvane::simulator {

namespace {

[[noreturn]] void fail(const std::string& what) {
    throw std::runtime_error(what + ": " + std::generic_category().message(errno));
}

/// Bytes pass as they are, without echo and line editing, until a client sets the terminal its own way.
void makeRaw(int terminal) {
    termios settings{};
    if (::tcgetattr(terminal, &settings) != 0) fail("pseudo-terminal");
    ::cfmakeraw(&settings);
    if (::tcsetattr(terminal, TCSANOW, &settings) != 0) fail("pseudo-terminal");
}

std::string clientName(int master) {
    std::array<char, 256> name{};
    if (::ptsname_r(master, name.data(), name.size()) != 0) fail("pseudo-terminal");
    return name.data();
}

} // namespace

Pseudo_Terminal::Pseudo_Terminal(std::string link) : link_(std::move(link)) { plugIn(); }

Pseudo_Terminal::~Pseudo_Terminal() { unplug(); }

void Pseudo_Terminal::plugIn() {
    openPair();
    makeLink();
}

void Pseudo_Terminal::unplug() {
    if (!master_.open()) return;
    removeLink();
    watch_.reset();
    held_.reset();
    master_.reset();
    clients_ = 0;
}

void Pseudo_Terminal::openPair() {
    master_ = Unique_Fd(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK));
    if (!master_.open() || ::grantpt(master_.get()) != 0 || ::unlockpt(master_.get()) != 0)
        fail("pseudo-terminal");
    client_ = clientName(master_.get());
    held_ = Unique_Fd(::open(client_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (!held_.open()) fail(client_);
    makeRaw(held_.get());
    // Without a watch the line works too; only answers to a client that went may reach the next one.
    watch_ = Unique_Fd(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (watch_.open() && ::inotify_add_watch(watch_.get(), client_.c_str(), IN_OPEN | IN_CLOSE) < 0)
        watch_.reset();
}

void Pseudo_Terminal::makeLink() const {
    struct stat there {};
    if (::lstat(link_.c_str(), &there) == 0 && !S_ISLNK(there.st_mode))
        throw std::runtime_error(link_ + " exists and is not a link");
    // Made under another name first, so that the link is never missing while it is replaced.
    const std::string fresh = link_ + "." + std::to_string(::getpid());
    ::unlink(fresh.c_str());
    if (::symlink(client_.c_str(), fresh.c_str()) != 0) fail(link_);
    if (::rename(fresh.c_str(), link_.c_str()) == 0) return;
    const int reason = errno;
    ::unlink(fresh.c_str());
    errno = reason;
    fail(link_);
}

void Pseudo_Terminal::removeLink() const noexcept {
    std::error_code failed;
    const auto target = std::filesystem::read_symlink(link_, failed);
    if (!failed && target == client_) ::unlink(link_.c_str());
}

bool Pseudo_Terminal::clientsChanged() {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    bool changed = false;
    ssize_t got = 0;
    while ((got = ::read(watch_.get(), buffer.data(), buffer.size())) > 0) {
        inotify_event event{};
        for (std::size_t place = 0; place < static_cast<std::size_t>(got);
             place += sizeof(event) + event.len) {
            std::memcpy(&event, buffer.data() + place, sizeof(event));
            const bool opened = (event.mask & IN_OPEN) != 0;
            clients_ = opened ? clients_ + 1 : std::max(clients_ - 1, 0);
            changed = changed || clients_ == (opened ? 1 : 0);
        }
    }
    if (!changed) return false;
    ::tcflush(held_.get(), TCIFLUSH);
    // A client that died may have left the terminal closed to others, since its last descriptor is held here.
    if (clients_ == 0) ::ioctl(held_.get(), TIOCNXCL);
    return true;
}

} // namespace zorvane::simulator
