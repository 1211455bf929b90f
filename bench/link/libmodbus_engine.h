// SPDX-License-Identifier: MIT
#pragma once

#include "bench/link/engine.h"
#include "bench/link/wire.h"

#include <QEventLoop>
#include <QObject>

#include <modbus/modbus.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace zorvane::bench {

/// libmodbus in a thread of its own, as a program with a window would have to use it: requests go to the
/// thread, results come back through the event loop. The thread keeps the line's silence between two
/// exchanges, since libmodbus doesn't. REQUIRES: a QCoreApplication.
class Libmodbus_Engine final : public Engine {
  public:
    Libmodbus_Engine(const std::string& device, const Wire& wire);
    Libmodbus_Engine(const Libmodbus_Engine&) = delete;
    Libmodbus_Engine& operator=(const Libmodbus_Engine&) = delete;
    ~Libmodbus_Engine() override;

    [[nodiscard]] std::string name() const override { return "libmodbus"; }
    [[nodiscard]] std::vector<double> exchange(const Rtu_Request& request, int count) override;

  private:
    using Clock = std::chrono::steady_clock;

    void work();
    [[nodiscard]] std::string perform();
    void handOver();
    void finished(const std::string& fault);

    std::unique_ptr<modbus_t, decltype(&modbus_free)> context_;
    std::chrono::microseconds silence_;
    QEventLoop loop_;
    QObject receiver_;

    Rtu_Request request_;
    Clock::time_point handedOver_;
    int remaining_ = 0;
    std::vector<double> times_;
    std::string fault_;

    Clock::time_point lineFree_{};
    std::mutex mutex_;
    std::condition_variable wake_;
    bool pending_ = false;
    bool ending_ = false;
    std::thread thread_;
};

} // namespace zorvane::bench
