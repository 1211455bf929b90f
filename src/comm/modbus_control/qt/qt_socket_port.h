// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/byte_port.h"
#include "comm/modbus_control/line/network_port.h"

#include <cstdint>
#include <memory>

class QObject;
class QTcpSocket;

namespace zorvane {

/// A stream of bytes to a port on a network, by Qt's QTcpSocket and straight, whatever proxy the desktop
/// names. `open` only begins: the listener hears of the end. Line settings and RTS mean nothing to it.
/// REQUIRES: a QCoreApplication.
class Qt_Socket_Port final : public Byte_Port {
  public:
    Qt_Socket_Port();
    Qt_Socket_Port(const Qt_Socket_Port&) = delete;
    Qt_Socket_Port& operator=(const Qt_Socket_Port&) = delete;
    ~Qt_Socket_Port() override;

    void setListener(Byte_Port_Listener* listener) override { listener_ = listener; }
    [[nodiscard]] Port_Opening open(const std::string& name, const Port_Settings& settings) override;
    void close() override;
    [[nodiscard]] bool isOpen() const override { return open_; }
    [[nodiscard]] bool write(Byte_View bytes) override;
    Byte_Array discardInput() override;
    [[nodiscard]] bool hasInput() const override;
    void setRts(bool) override {}

  private:
    [[nodiscard]] bool isReady() const;
    void connected();
    void readBytes();
    void failed(int error); ///< one of QAbstractSocket::SocketError
    void waitedTooLong();
    void openingFailed(const std::string& reason);

    std::unique_ptr<QTcpSocket> socket_;
    std::unique_ptr<QObject> opening_; ///< hears of it; what an earlier one left in the queue went with that
    std::unique_ptr<Alarm> connectAlarm_;
    Network_Port address_;
    Byte_Port_Listener* listener_ = nullptr;
    bool open_ = false;
};

/// Has the system look after a connection on which nothing comes back: one whose other end went without a
/// word, as with a pulled cable, counts as broken some ten seconds later, and not after the system's own two
/// hours. Where the system can't, requests go unanswered instead.
void noticeSilentHost(std::intptr_t socket);

} // namespace zorvane
