// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/serial_line_system.h"

#include <linux/serial.h>
#include <sys/ioctl.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace zorvane {

namespace {

std::string pathOf(const std::string& name) {
    return name.find('/') == std::string::npos ? "/dev/" + name : name;
}

/// A port that is open for one program only refuses as busy, and so is there.
bool opensAgain(const std::string& path) {
    const int second = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (second < 0) return errno == EBUSY || errno == EACCES || errno == EPERM;
    ::close(second);
    return true;
}

} // namespace

std::string whyNotOpened(const std::string& name, bool notFound, const std::string& systemText) {
    const std::string path = pathOf(name);
    std::error_code error;
    if (notFound || !std::filesystem::exists(path, error)) return portIsGone;
    if (::faccessat(AT_FDCWD, path.c_str(), R_OK | W_OK, AT_EACCESS) != 0) {
        return "Permission denied: add your user to the group dialout and log in again.";
    }
    if (!std::filesystem::is_character_file(path, error)) return "Not a serial port: choose another port.";
    if (systemText.find("busy") != std::string::npos) return portIsBusy;
    if (systemText.find("ermission") != std::string::npos) return portIsBusy;
    return systemText + ": check the adapter, or choose another port.";
}

bool isPseudoTerminal(const std::string& name) {
    std::error_code error;
    const std::filesystem::path target = std::filesystem::canonical(pathOf(name), error);
    return !error && target.parent_path() == "/dev/pts";
}

bool enableKernelRs485(std::intptr_t handle, std::int32_t delayMs) {
    serial_rs485 mode{};
    mode.flags = SER_RS485_ENABLED | SER_RS485_RTS_ON_SEND;
    mode.delay_rts_before_send = static_cast<std::uint32_t>(delayMs);
    return ::ioctl(static_cast<int>(handle), TIOCSRS485, &mode) == 0;
}

void askLowLatency(std::intptr_t handle) {
    serial_struct line{};
    if (::ioctl(static_cast<int>(handle), TIOCGSERIAL, &line) != 0) return;
    constexpr int lowLatency = 1 << 13; // ASYNC_LOW_LATENCY, whose macro is unsigned
    line.flags |= lowLatency;
    static_cast<void>(::ioctl(static_cast<int>(handle), TIOCSSERIAL, &line));
}

bool inputWaits(std::intptr_t handle) {
    int count = 0;
    return ::ioctl(static_cast<int>(handle), FIONREAD, &count) == 0 && count > 0;
}

Byte_Array takeWaitingInput(std::intptr_t handle) {
    Byte_Array bytes;
    std::array<std::uint8_t, 512> part{};
    const int line = static_cast<int>(handle);
    pollfd state{line, POLLIN, 0};
    // A line that babbles isn't read for ever.
    while (bytes.size() < 4096 && ::poll(&state, 1, 0) > 0 && (state.revents & POLLIN) != 0) {
        const ssize_t got = ::read(line, part.data(), part.size());
        if (got <= 0) break;
        bytes.insert(bytes.end(), part.begin(), part.begin() + got);
    }
    return bytes;
}

bool lineStands(std::intptr_t handle, const std::string& name) {
    const int line = static_cast<int>(handle);
    pollfd state{line, POLLIN, 0};
    if (::poll(&state, 1, 0) < 0 || (state.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0) return false;
    if ((state.revents & POLLIN) != 0 && !inputWaits(handle)) return false;
    termios settings{};
    return ::tcgetattr(line, &settings) == 0 && opensAgain(pathOf(name));
}

} // namespace zorvane
