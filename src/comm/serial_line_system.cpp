#include "comm/serial_line_system.h"

#ifdef __linux__
#include <linux/serial.h>
#include <sys/ioctl.h>

#include <fcntl.h>
#include <filesystem>
#include <unistd.h>
#endif

namespace zorvane {

namespace {

constexpr const char* gone = "No such port: plug the adapter in, or choose another port.";
constexpr const char* busy = "Busy: another program has the port open. Close that program and try again.";

#ifdef __linux__

std::string pathOf(const std::string& name) {
    return name.find('/') == std::string::npos ? "/dev/" + name : name;
}

#endif

} // namespace

#ifdef __linux__

std::string whyNotOpened(const std::string& name, bool notFound, const std::string& systemText) {
    const std::string path = pathOf(name);
    std::error_code error;
    if (notFound || !std::filesystem::exists(path, error)) return gone;
    if (::faccessat(AT_FDCWD, path.c_str(), R_OK | W_OK, AT_EACCESS) != 0) {
        return "Permission denied: add your user to the group dialout and log in again.";
    }
    if (!std::filesystem::is_character_file(path, error)) return "Not a serial port: choose another port.";
    if (systemText.find("busy") != std::string::npos) return busy;
    if (systemText.find("ermission") != std::string::npos) return busy;
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

#else

std::string whyNotOpened(const std::string&, bool notFound, const std::string& systemText) {
    if (notFound) return gone;
    if (systemText.find("denied") != std::string::npos) return busy;
    return systemText + ": check the adapter, or choose another port.";
}

bool isPseudoTerminal(const std::string&) { return false; }
bool enableKernelRs485(std::intptr_t, std::int32_t) { return false; }
void askLowLatency(std::intptr_t) {}
bool inputWaits(std::intptr_t) { return false; }

#endif

} // namespace zorvane
