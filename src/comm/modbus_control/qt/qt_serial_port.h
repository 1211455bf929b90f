// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/byte_port.h"

#include <memory>

class QSerialPort;

namespace zorvane {

/// A serial port by Qt's QSerialPort, by name or by path; pseudo-terminals too. REQUIRES: a QCoreApplication.
class Qt_Serial_Port final : public Byte_Port {
  public:
    Qt_Serial_Port();
    Qt_Serial_Port(const Qt_Serial_Port&) = delete;
    Qt_Serial_Port& operator=(const Qt_Serial_Port&) = delete;
    ~Qt_Serial_Port() override;

    void setListener(Byte_Port_Listener* listener) override { listener_ = listener; }
    [[nodiscard]] Port_Opening open(const std::string& name, const Port_Settings& settings) override;
    [[nodiscard]] Line_Change changeLine(const Line_Settings& line) override;
    void close() override;
    [[nodiscard]] bool isOpen() const override;
    [[nodiscard]] bool write(Byte_View bytes) override;
    Byte_Array discardInput() override;
    [[nodiscard]] bool hasInput() const override;
    void setRts(bool on) override;
    void tellNotBefore(Micros when) override;

  private:
    void readBytes();
    void listen(bool on);
    void listenAgain();
    void failed(bool mayBeNothing);
    void readNothing();
    void lose(const std::string& reason);
    [[nodiscard]] std::string applyLine(const Line_Settings& line, bool pseudoTerminal);
    void applyRts(const Port_Settings& settings, Port_Opening& opening);

    std::unique_ptr<QSerialPort> port_;
    std::string name_; ///< under which it was opened
    std::unique_ptr<Alarm> listenAlarm_;
    Micros notBefore_ = 0; ///< deaf until then; 0: not deaf
    Byte_Port_Listener* listener_ = nullptr;
    bool inCall_ = false; ///< errors meanwhile are the call's own
    bool callFailed_ = false;
};

} // namespace zorvane
