// SPDX-License-Identifier: MIT
#pragma once

#include "bench/link/engine.h"
#include "bench/link/wire.h"
#include "comm/modbus_control/exchange/rtu_transaction.h"
#include "comm/modbus_control/qt/qt_link_clock.h"
#include "comm/modbus_control/qt/qt_serial_port.h"

#include <QEventLoop>

#include <chrono>

namespace zorvane::bench {

/// Zorvane's own transaction on Qt's serial port, driven by this thread's event loop. REQUIRES: a
/// QCoreApplication.
class Zorvane_Engine final : public Engine, private Transaction_Listener {
  public:
    Zorvane_Engine(const std::string& device, const Wire& wire);

    [[nodiscard]] std::string name() const override { return "Zorvane"; }
    [[nodiscard]] std::vector<double> exchange(const Rtu_Request& request, int count) override;

  private:
    void requestSent() override {}
    void tryFinished(const Try_Result& result) override;
    void strayReceived(Micros at, const Byte_Array& bytes, const std::string& what) override;
    void lineLost(const std::string& reason) override { fault_ = reason; }

    void submit();
    [[nodiscard]] static std::string faultOf(const Try_Result& result);

    Qt_Link_Clock clock_;
    Qt_Serial_Port port_;
    Rtu_Transaction transaction_;
    QEventLoop loop_;
    Rtu_Request request_;
    std::chrono::steady_clock::time_point handedOver_;
    int remaining_ = 0;
    std::vector<double> times_;
    std::string fault_;
};

} // namespace zorvane::bench
