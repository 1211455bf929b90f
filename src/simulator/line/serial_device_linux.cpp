// SPDX-License-Identifier: MIT
#include "simulator/line/serial_device.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <termios.h>
#include <utility>

namespace zorvane::simulator {

namespace {

constexpr std::array<std::pair<int, speed_t>, 15> speeds{{
    {300, B300},
    {600, B600},
    {1200, B1200},
    {1800, B1800},
    {2400, B2400},
    {4800, B4800},
    {9600, B9600},
    {19200, B19200},
    {38400, B38400},
    {57600, B57600},
    {115200, B115200},
    {230400, B230400},
    {460800, B460800},
    {500000, B500000},
    {921600, B921600},
}};

std::optional<speed_t> speedOf(int baud) {
    const auto* const found =
        std::find_if(speeds.begin(), speeds.end(), [baud](const auto& entry) { return entry.first == baud; });
    return found == speeds.end() ? std::nullopt : std::optional(found->second);
}

void setFlag(tcflag_t& flags, tcflag_t flag, bool on) { flags = on ? flags | flag : flags & ~flag; }

void setFormat(termios& line, const Line_Settings& settings) {
    ::cfmakeraw(&line);
    setFlag(line.c_cflag, CSIZE, false);
    setFlag(line.c_cflag, settings.dataBits == 7 ? CS7 : CS8, true);
    setFlag(line.c_cflag, PARENB, settings.parity != 'N');
    setFlag(line.c_cflag, PARODD, settings.parity == 'O');
    setFlag(line.c_cflag, CSTOPB, settings.stopBits == 2);
    setFlag(line.c_cflag, CLOCAL | CREAD, true);
    line.c_cc[VMIN] = 0;
    line.c_cc[VTIME] = 0;
}

[[noreturn]] void failOn(const std::string& device) {
    throw std::runtime_error(device + ": " + std::generic_category().message(errno));
}

} // namespace

Serial_Device::Serial_Device(const std::string& device, const Line_Settings& settings) {
    const auto speed = speedOf(settings.baud);
    if (!speed)
        throw std::runtime_error(device + ": no serial port runs at " + std::to_string(settings.baud) +
                                 " baud");
    device_ = Unique_Fd(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!device_.open()) failOn(device);
    termios line{};
    if (::tcgetattr(device_.get(), &line) != 0) failOn(device);
    setFormat(line, settings);
    ::cfsetispeed(&line, *speed);
    ::cfsetospeed(&line, *speed);
    if (::tcsetattr(device_.get(), TCSANOW, &line) != 0) failOn(device);
    ::tcflush(device_.get(), TCIOFLUSH);
}

} // namespace zorvane::simulator
