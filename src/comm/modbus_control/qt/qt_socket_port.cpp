// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_socket_port.h"

#include "comm/modbus_control/line/network_texts.h"
#include "comm/modbus_control/qt/qt_link_clock.h"

#include <QNetworkProxy>
#include <QTcpSocket>

namespace zorvane {

namespace {

/// A host that answers at all does so within this time, even over a radio.
constexpr Micros connectLimit = 5 * microsPerSecond;

Connect_Fault faultOf(int error) {
    switch (error) {
    case QAbstractSocket::HostNotFoundError:
        return Connect_Fault::HostUnknown;
    case QAbstractSocket::ConnectionRefusedError:
        return Connect_Fault::Refused;
    case QAbstractSocket::SocketTimeoutError:
        return Connect_Fault::NoAnswer;
    case QAbstractSocket::NetworkError:
        return Connect_Fault::Unreachable;
    default:
        return Connect_Fault::Other;
    }
}

Byte_Array bytesOf(const QByteArray& bytes) { return {bytes.begin(), bytes.end()}; }

} // namespace

Qt_Socket_Port::Qt_Socket_Port()
    : socket_(std::make_unique<QTcpSocket>()),
      connectAlarm_(Qt_Link_Clock().makeAlarm([this] { waitedTooLong(); })) {
    socket_->setProxy(QNetworkProxy::NoProxy);
}

Qt_Socket_Port::~Qt_Socket_Port() {
    listener_ = nullptr;
    close();
}

Port_Opening Qt_Socket_Port::open(const std::string& name, const Port_Settings&) {
    const auto address = networkPort(name);
    if (!address) return {false, networkNameFault(name), {}};
    close();
    address_ = *address;
    // Everything is told later, from the event loop: a call of this object may end a connection too.
    opening_ = std::make_unique<QObject>();
    const QObject* const told = opening_.get();
    QObject::connect(
        socket_.get(), &QTcpSocket::connected, told, [this] { connected(); }, Qt::QueuedConnection);
    QObject::connect(
        socket_.get(), &QTcpSocket::readyRead, told, [this] { readBytes(); }, Qt::QueuedConnection);
    QObject::connect(
        socket_.get(), &QTcpSocket::errorOccurred, told,
        [this](QAbstractSocket::SocketError error) { failed(error); }, Qt::QueuedConnection);
    connectAlarm_->armAt(Qt_Link_Clock().now() + connectLimit);
    socket_->connectToHost(QString::fromStdString(address->host), address->port);
    return {false, {}, {}, true};
}

void Qt_Socket_Port::close() {
    open_ = false;
    opening_.reset();
    connectAlarm_->disarm();
    socket_->abort();
}

void Qt_Socket_Port::connected() {
    connectAlarm_->disarm();
    // A request is one small packet, and waits for nothing.
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    noticeSilentHost(socket_->socketDescriptor());
    open_ = true;
    if (listener_ != nullptr) listener_->openingEnded({.opened = true});
}

void Qt_Socket_Port::waitedTooLong() {
    openingFailed(connectFaultText(address_, Connect_Fault::NoAnswer, {}));
}

void Qt_Socket_Port::openingFailed(const std::string& reason) {
    close();
    if (listener_ != nullptr) listener_->openingEnded({.reason = reason});
}

void Qt_Socket_Port::failed(int error) {
    const std::string text = socket_->errorString().toStdString();
    if (!open_) return openingFailed(connectFaultText(address_, faultOf(error), text));
    if (error == QAbstractSocket::SocketTimeoutError && socket_->state() == QAbstractSocket::ConnectedState)
        return; // a look for bytes that found none
    readBytes();
    if (!open_) return; // whoever was told has closed it
    close();
    const bool closedThere = error == QAbstractSocket::RemoteHostClosedError;
    if (listener_ != nullptr) listener_->portLost(connectionLostText(address_, closedThere ? "" : text));
}

void Qt_Socket_Port::readBytes() {
    if (!isReady() || listener_ == nullptr) return;
    const Byte_Array bytes = bytesOf(socket_->readAll());
    if (!bytes.empty()) listener_->bytesArrived(bytes);
}

/// The other side may have closed before the event loop tells of it; Qt would complain of its own accord.
bool Qt_Socket_Port::isReady() const { return open_ && socket_->isOpen(); }

bool Qt_Socket_Port::write(Byte_View bytes) {
    if (!isReady()) return false;
    const auto size = static_cast<qint64>(bytes.size());
    const qint64 taken = socket_->write(reinterpret_cast<const char*>(bytes.data()), size);
    socket_->flush(); // `write` only buffers
    return taken == size;
}

/// What the system holds comes along with what Qt has taken of it.
Byte_Array Qt_Socket_Port::discardInput() {
    if (!isReady()) return {};
    static_cast<void>(socket_->waitForReadyRead(0));
    return bytesOf(socket_->readAll());
}

bool Qt_Socket_Port::hasInput() const {
    return isReady() && (socket_->bytesAvailable() > 0 || socket_->waitForReadyRead(0));
}

} // namespace zorvane
