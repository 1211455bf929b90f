// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/testing/hand_clock.h"
#include "comm/modbus_control/testing/scripted_port.h"
#include "comm/modbus_control/testing/toy_slave.h"
#include "comm/modbus_control/units/unit_exchanges.h"

#include <functional>
#include <stdexcept>

namespace zorvane::testing {

/// Exchanges over a scripted port and a hand clock, with a slave behind it. With `faults` the slave answers
/// nothing by itself: the function gets the request's number (from 0) and the request, and sends whatever it
/// likes.
struct Exchange_Rig {
    using Fault = std::function<void(int number, const Byte_Array& request)>;

    Exchange_Rig() {
        port.onWrite = [this](const Byte_Array& request) {
            const int number = static_cast<int>(port.written.size()) - 1;
            if (faults) return faults(number, request);
            reply(slave.answer(request));
        };
    }

    static Port_Settings defaults() {
        Port_Settings settings;
        settings.port = "ttyUSB0";
        settings.retries = 2;
        settings.timeOutMs = 100;
        return settings;
    }

    /// Bytes come in that long after the request's first byte went out.
    void send(const Byte_Array& bytes, Micros delay) {
        clock.in(delay, [this, bytes] { port.deliver(bytes); });
    }
    /// The same after the request's last byte.
    void reply(const Byte_Array& bytes, Micros delay = 5 * microsPerMs) {
        send(bytes, wireTime(line.settings().line, port.written.back().size()) + delay);
    }
    void retries(std::int32_t count) { line.setRetries(count); }

    Hand_Clock clock;
    Scripted_Port port;
    Scripted_Finder finder;
    Toy_Slave slave;
    Fault faults;
    bool cancelled = false;
    Unit_Exchanges line{{port, clock, finder,
                         [this](const std::function<bool()>& condition) {
                             if (!clock.runUntilTrue(condition, 60 * microsPerSecond))
                                 throw std::runtime_error("an exchange hangs");
                         },
                         [this] { return cancelled; }},
                        defaults()};
};

} // namespace zorvane::testing
