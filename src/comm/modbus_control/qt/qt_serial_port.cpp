// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_serial_port.h"

#include "comm/modbus_control/line/port_texts.h"
#include "comm/modbus_control/qt/log_categories.h"
#include "comm/modbus_control/qt/qt_link_clock.h"
#include "comm/modbus_control/qt/serial_line_system.h"

#include <QSerialPort>
#include <QSocketNotifier>

#include <utility>

namespace zorvane {

namespace {

/// True as long as it lives.
class Flag_Scope {
  public:
    explicit Flag_Scope(bool& flag) : flag_(flag) { flag_ = true; }
    Flag_Scope(const Flag_Scope&) = delete;
    Flag_Scope& operator=(const Flag_Scope&) = delete;
    ~Flag_Scope() { flag_ = false; }

  private:
    bool& flag_;
};

QSerialPort::Parity parityOf(char letter) {
    if (letter == 'E') return QSerialPort::EvenParity;
    return letter == 'O' ? QSerialPort::OddParity : QSerialPort::NoParity;
}

bool endsTheLine(QSerialPort::SerialPortError error) {
    return error == QSerialPort::ReadError || error == QSerialPort::WriteError ||
           error == QSerialPort::ResourceError;
}

} // namespace

Qt_Serial_Port::Qt_Serial_Port()
    : port_(std::make_unique<QSerialPort>()),
      listenAlarm_(Qt_Link_Clock().makeAlarm([this] { listenAgain(); })) {
    QObject::connect(port_.get(), &QSerialPort::readyRead, port_.get(), [this] { readBytes(); });
    QObject::connect(port_.get(), &QSerialPort::errorOccurred, port_.get(),
                     [this](QSerialPort::SerialPortError error) {
                         if (endsTheLine(error)) failed(error != QSerialPort::WriteError);
                     });
}

Qt_Serial_Port::~Qt_Serial_Port() {
    listener_ = nullptr;
    close();
}

Port_Opening Qt_Serial_Port::open(const std::string& name, const Port_Settings& settings) {
    const Flag_Scope call(inCall_);
    name_ = name;
    port_->setPortName(QString::fromStdString(name));
    // A pseudo-terminal drops parity and data bits, and the C library then calls the whole setting a failure:
    // so it is opened plain and set afterwards.
    port_->setBaudRate(QSerialPort::Baud9600);
    port_->setDataBits(QSerialPort::Data8);
    port_->setParity(QSerialPort::NoParity);
    port_->setFlowControl(QSerialPort::NoFlowControl);
    port_->clearError();
    if (!port_->open(QIODevice::ReadWrite)) {
        const bool notFound = port_->error() == QSerialPort::DeviceNotFoundError;
        qCDebug(portLog) << "not opened" << name.c_str() << port_->error() << port_->errorString();
        return {false, whyNotOpened(name, notFound, port_->errorString().toStdString()), {}};
    }
    if (const std::string fault = applyLine(settings.line, isPseudoTerminal(name)); !fault.empty()) {
        qCDebug(portLog) << "line refused" << name.c_str() << fault.c_str();
        port_->close();
        return {false, fault, {}};
    }
    Port_Opening opening{true, {}, {}};
    applyRts(settings, opening);
    askLowLatency(port_->handle());
    port_->clear();
    port_->clearError();
    qCDebug(portLog) << "opened" << name.c_str() << formatLineSettings(settings.line).c_str();
    return opening;
}

std::string Qt_Serial_Port::applyLine(const Line_Settings& line, bool pseudoTerminal) {
    bool applied = port_->setBaudRate(line.baud);
    applied = port_->setDataBits(line.dataBits == 7 ? QSerialPort::Data7 : QSerialPort::Data8) && applied;
    applied = port_->setParity(parityOf(line.parity)) && applied;
    applied = port_->setStopBits(line.stopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop) && applied;
    port_->clearError();
    return applied || pseudoTerminal ? std::string() : lineRefusal(line);
}

Line_Change Qt_Serial_Port::changeLine(const Line_Settings& line) {
    if (!port_->isOpen()) return Line_Change::Refused;
    const Flag_Scope call(inCall_);
    return applyLine(line, isPseudoTerminal(name_)).empty() ? Line_Change::Done : Line_Change::Refused;
}

void Qt_Serial_Port::applyRts(const Port_Settings& settings, Port_Opening& opening) {
    if (settings.rts == Rts_Mode::HighOnSend && !port_->setRequestToSend(false)) {
        opening.warnings.emplace_back("The port has no RTS line: sending goes on without it.");
    }
    if (settings.rts == Rts_Mode::KernelRs485 && !enableKernelRs485(port_->handle(), settings.txDelayMs)) {
        opening.warnings.emplace_back("The port's driver has no RS-485 mode: sending goes on without it.");
    }
}

void Qt_Serial_Port::close() {
    listenAgain();
    if (port_->isOpen()) port_->close();
}

bool Qt_Serial_Port::isOpen() const { return port_->isOpen(); }

bool Qt_Serial_Port::write(Byte_View bytes) {
    if (!port_->isOpen()) return false;
    const Flag_Scope call(inCall_);
    callFailed_ = false;
    const auto size = static_cast<qint64>(bytes.size());
    const qint64 taken = port_->write(reinterpret_cast<const char*>(bytes.data()), size);
    // `write` only buffers, and waiting for the bytes to leave would block the event loop.
    port_->flush();
    return taken == size && !callFailed_;
}

/// What waits is read, and never flushed: the monitor shows it.
Byte_Array Qt_Serial_Port::discardInput() {
    if (!port_->isOpen()) return {};
    const QByteArray told = port_->readAll();
    Byte_Array bytes(told.begin(), told.end());
    const Byte_Array waiting = takeWaitingInput(port_->handle());
    bytes.insert(bytes.end(), waiting.begin(), waiting.end());
    return bytes;
}

bool Qt_Serial_Port::hasInput() const {
    return port_->isOpen() && (port_->bytesAvailable() > 0 || inputWaits(port_->handle()));
}

void Qt_Serial_Port::setRts(bool on) {
    const Flag_Scope call(inCall_);
    port_->setRequestToSend(on);
}

/// What comes in meanwhile stays with the system, which wakes nobody for it.
void Qt_Serial_Port::tellNotBefore(Micros when) {
    if (when <= Qt_Link_Clock().now()) return listenAgain();
    if (!port_->isOpen() || when == notBefore_) return;
    notBefore_ = when;
    listen(false);
    listenAlarm_->armAt(when);
}

void Qt_Serial_Port::listenAgain() {
    if (std::exchange(notBefore_, 0) == 0) return;
    listenAlarm_->disarm();
    listen(true);
}

/// QSerialPort has no way to pause it, but its notifiers are its children. Where there are none, it goes on
/// telling each byte.
void Qt_Serial_Port::listen(bool on) {
    for (QSocketNotifier* notifier : port_->findChildren<QSocketNotifier*>())
        if (notifier->type() == QSocketNotifier::Read) notifier->setEnabled(on);
}

void Qt_Serial_Port::readBytes() {
    const QByteArray bytes = port_->readAll();
    if (bytes.isEmpty() || listener_ == nullptr) return;
    listener_->bytesArrived(
        {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())});
}

/// A read that brought nothing comes as the same errors as one on a line that is gone.
void Qt_Serial_Port::failed(bool mayBeNothing) {
    callFailed_ = true;
    if (inCall_ || !port_->isOpen()) return;
    if (mayBeNothing && lineStands(port_->handle(), name_)) return readNothing();
    // A read that found the end comes with the system's text of whatever failed last.
    lose(mayBeNothing ? "The adapter was unplugged, or the line hung up"
                      : port_->errorString().toStdString());
}

/// The event loop had announced bytes that were taken before it came to tell them. QSerialPort takes a read
/// that finds none for a lost line, and stops listening once it has told so.
void Qt_Serial_Port::readNothing() {
    port_->clearError();
    if (notBefore_ != 0) return;
    notBefore_ = Qt_Link_Clock().now();
    listenAlarm_->armAt(notBefore_);
}

void Qt_Serial_Port::lose(const std::string& reason) {
    // The error comes again for ever until the port is closed.
    qCDebug(portLog) << "lost" << name_.c_str() << port_->error() << reason.c_str();
    close();
    if (listener_ != nullptr) listener_->portLost(reason);
}

} // namespace zorvane
