// SPDX-License-Identifier: MIT
#include "commission/folder/port_lock.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace zorvane::commission {

namespace fs = std::filesystem;

namespace {

/// The kernel lets the lock go with the last descriptor, also of a program that was killed.
class Locked_File final : public Held_Port {
  public:
    explicit Locked_File(int file) : file_(file) {}
    ~Locked_File() override { ::close(file_); }
    Locked_File(const Locked_File&) = delete;
    Locked_File& operator=(const Locked_File&) = delete;

  private:
    int file_;
};

/// "tcp:127.0.0.1:502" for "TCP:localhost:502" too: hosts have no case, and this one has three names.
std::string networkName(std::string port) {
    for (char& c : port)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    for (const std::string_view self : {":localhost:", ":[::1]:"})
        if (const std::size_t at = port.find(self); at != std::string::npos)
            port.replace(at, self.size(), ":127.0.0.1:");
    return port;
}

/// One name for one line, whatever way leads to it.
std::string lineName(const std::string& port, std::int32_t unit) {
    // The paths under /dev/serial/by-path have colons too.
    const bool network = port.find(':') < port.find('/');
    if (network) return networkName(port) + "@" + std::to_string(unit);
    const fs::path path = port.find('/') == std::string::npos ? fs::path("/dev") / port : fs::path(port);
    std::error_code error;
    const fs::path real = fs::canonical(path, error);
    return error ? path.string() : real.string();
}

std::string fileName(std::string line) {
    for (char& c : line)
        if (c == '/') c = '_';
    return line + ".lock";
}

std::string holderOf(int file) {
    std::array<char, 32> text{};
    const ssize_t size = ::pread(file, text.data(), text.size() - 1, 0);
    return size > 0 ? " (process " + std::string(text.data(), static_cast<std::size_t>(size)) + ")" : "";
}

} // namespace

Port_Hold Native_Port_Locks::take(const std::string& port, std::int32_t unit) {
    std::error_code error;
    fs::create_directories(folder_, error);
    const std::string path = folder_ + "/" + fileName(lineName(port, unit));
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0)
        return {nullptr, "The lock " + path + " can't be made: " + std::strerror(errno) +
                             ". Nothing was sent. See to the rights of its folder."};
    auto held = std::make_unique<Locked_File>(file);
    if (::flock(file, LOCK_EX | LOCK_NB) != 0)
        return {nullptr, "The port " + port + " is in use by another run" + holderOf(file) +
                             ". Wait for its end, or stop it."};
    const std::string process = std::to_string(::getpid());
    const bool noted = ::ftruncate(file, 0) == 0 && ::pwrite(file, process.data(), process.size(), 0) ==
                                                        static_cast<ssize_t>(process.size());
    if (!noted)
        return {nullptr, "The lock " + path + " can't be written: " + std::strerror(errno) +
                             ". Nothing was sent. Make room on its disk."};
    return {std::move(held), {}};
}

} // namespace zorvane::commission
