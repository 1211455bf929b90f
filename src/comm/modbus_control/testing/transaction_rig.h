// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/rtu_transaction.h"
#include "comm/modbus_control/testing/hand_clock.h"
#include "comm/modbus_control/testing/scripted_port.h"
#include "comm/modbus_control/testing/toy_slave.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace zorvane::testing {

inline constexpr Micros silence = 3646;     ///< between frames at 9600 baud
inline constexpr Micros requestTime = 8334; ///< eight characters at 9600 baud

/// Keeps what the transaction tells.
struct Recorder final : Transaction_Listener {
    void requestSent() override { ++sent; }
    void tryFinished(const Try_Result& result) override {
        results.push_back(result);
        if (onFinished) onFinished();
    }
    void strayReceived(Micros, const Byte_Array& bytes, const std::string& what) override {
        strays.push_back(what + " (" + std::to_string(bytes.size()) + ")");
    }
    void lineLost(const std::string& reason) override { lost.push_back(reason); }

    int sent = 0;
    std::vector<Try_Result> results;
    std::vector<std::string> strays;
    std::vector<std::string> lost;
    std::function<void()> onFinished;
};

/// A transaction over a scripted port and a hand clock, 9600 baud without parity and 100 ms of time-out.
class Transaction_Rig : public ::testing::Test {
  protected:
    Transaction_Rig() {
        use(settings);
        transaction.setWaits(0, 100 * ms);
        port.onWrite = [this](const Byte_Array&) { sentAt.push_back(clock.now()); };
        open();
    }

    void use(const Port_Settings& changed) {
        settings = changed;
        transaction.setLine(settings);
    }
    void open() {
        ASSERT_TRUE(port.open("p", settings).opened);
        transaction.lineOpened();
    }
    /// Submits and runs until the request is on its way.
    void begin(const Rtu_Request& request) {
        const std::size_t before = sentAt.size();
        transaction.submit(request);
        ASSERT_TRUE(clock.runUntilTrue([&] { return sentAt.size() > before; }, 10 * microsPerSecond));
    }
    [[nodiscard]] std::string fault() const { return recorder.results.back().fault; }

    Port_Settings settings;
    Hand_Clock clock;
    Scripted_Port port;
    Recorder recorder;
    Rtu_Transaction transaction{port, clock, recorder};
    std::vector<Micros> sentAt;

    const Rtu_Request read = readRequest(1, 0, 2);
    const Byte_Array answer = withCrc(bytesOf("01 03 04 00 07 00 08"));
};

} // namespace zorvane::testing
