// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/port_texts.h"
#include "comm/modbus_control/qt/serial_line_system.h"
#include "survey/qt/qt_listening_port.h"

// The kernel's own settings, which know every speed; <termios.h> would clash with them.
#include <asm/ioctls.h>
#include <asm/termbits.h>
#include <sys/ioctl.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace zorvane::survey {

namespace {

std::string pathOf(const std::string& name) {
    return name.find('/') == std::string::npos ? "/dev/" + name : name;
}

/// Raw bytes without flow control. What the line does when it is closed (HUPCL) stays as it was.
termios2 rawSettings(const termios2& before, const Line_Settings& line) {
    termios2 settings = before;
    settings.c_iflag = 0;
    settings.c_oflag = 0;
    settings.c_lflag = 0;
    settings.c_cflag &= ~static_cast<tcflag_t>(CBAUD | CSIZE | PARENB | PARODD | CMSPAR | CSTOPB | CRTSCTS);
    settings.c_cflag |= static_cast<tcflag_t>(BOTHER | CREAD | CLOCAL);
    settings.c_cflag |= static_cast<tcflag_t>(line.dataBits == 7 ? CS7 : CS8);
    if (line.parity != 'N') settings.c_cflag |= static_cast<tcflag_t>(PARENB);
    if (line.parity == 'O') settings.c_cflag |= static_cast<tcflag_t>(PARODD);
    if (line.stopBits == 2) settings.c_cflag |= static_cast<tcflag_t>(CSTOPB);
    settings.c_ispeed = settings.c_ospeed = static_cast<speed_t>(line.baud);
    settings.c_cc[VMIN] = 1;
    settings.c_cc[VTIME] = 0;
    return settings;
}

/// Drivers may round a speed, or pass over what they can't.
bool speedHolds(int descriptor, std::int32_t baud) {
    termios2 now{};
    if (::ioctl(descriptor, TCGETS2, &now) != 0) return false;
    const auto got = static_cast<std::int64_t>(now.c_ospeed);
    return std::abs(got - baud) * 100 <= std::int64_t{3} * baud;
}

} // namespace

struct Qt_Listening_Port::System_Line {
    explicit System_Line(int opened) : descriptor(opened) {}
    System_Line(const System_Line&) = delete;
    System_Line& operator=(const System_Line&) = delete;
    ~System_Line() {
        if (changed) ::ioctl(descriptor, TCSETS2, &before);
        if (held) ::ioctl(descriptor, TIOCNXCL);
        ::close(descriptor);
    }

    /// Whoever reads a line takes its bytes away from everybody else. The system lets an administrator open
    /// a held line all the same, so that is asked for. False when somebody holds it.
    [[nodiscard]] bool hold() {
        int heldBefore = 0;
        if (::ioctl(descriptor, TIOCGEXCL, &heldBefore) == 0 && heldBefore != 0) return false;
        held = ::ioctl(descriptor, TIOCEXCL) == 0;
        return true;
    }

    int descriptor;
    termios2 before{};
    bool changed = false;
    bool held = false; ///< by us alone
};

Qt_Listening_Port::Qt_Listening_Port() = default;

Qt_Listening_Port::~Qt_Listening_Port() { close(); }

Port_Opening Qt_Listening_Port::open(const std::string& name, const Line_Settings& line) {
    const int descriptor = ::open(pathOf(name).c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) return {false, whyNotOpened(name, errno == ENOENT, std::strerror(errno)), {}};
    auto opened = std::make_unique<System_Line>(descriptor);
    if (::ioctl(descriptor, TCGETS2, &opened->before) != 0)
        return {false, "Not a serial port: choose another port.", {}};
    if (!opened->hold()) return {false, portIsBusy, {}};
    const termios2 settings = rawSettings(opened->before, line);
    opened->changed = true;
    if (::ioctl(descriptor, TCSETS2, &settings) != 0 || !speedHolds(descriptor, line.baud))
        return {false, lineRefusal(line), {}};
    line_ = std::move(opened);
    notifier_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { readSome(); });
    return {true, {}, {}};
}

void Qt_Listening_Port::close() {
    notifier_.reset();
    line_.reset();
}

Byte_Array Qt_Listening_Port::takeInput() {
    return line_ ? takeWaitingInput(line_->descriptor) : Byte_Array();
}

void Qt_Listening_Port::readSome() {
    std::array<std::uint8_t, 4096> bytes{};
    const ssize_t got = ::read(line_->descriptor, bytes.data(), bytes.size());
    if (got > 0) {
        if (listener_ != nullptr) listener_->bytesArrived({bytes.data(), static_cast<std::size_t>(got)});
    } else if (got == 0 || (errno != EAGAIN && errno != EINTR)) {
        lose();
    }
}

/// The notifier that tells this is still at work, so it is put away later.
void Qt_Listening_Port::lose() {
    notifier_->setEnabled(false);
    notifier_.release()->deleteLater();
    line_.reset();
    if (listener_ != nullptr)
        listener_->portLost("The port went away: the adapter was unplugged, or the line hung up.");
}

} // namespace zorvane::survey
