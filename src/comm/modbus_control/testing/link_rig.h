// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/modbus_link.h"
#include "comm/modbus_control/testing/hand_clock.h"
#include "comm/modbus_control/testing/scripted_port.h"
#include "comm/modbus_control/testing/toy_slave.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::testing {

inline constexpr Micros timeOut = 100 * ms;

/// What a slave of the link's tests holds, another value in each register.
inline std::uint16_t valueOfRegister(std::int32_t address) {
    return static_cast<std::uint16_t>(address * 7 + 100);
}

struct Message_Shown {
    std::string text;
    int style;
    std::string title;
};

class Scripted_Asker final : public Asker {
  public:
    int Msgb_Show(const std::string& prompt, int style, const std::string& title) override {
        messages.push_back({prompt, style, title});
        return Msgb_Code_Ok;
    }
    std::vector<Message_Shown> messages;
};

class Traffic_Log final : public Traffic_Listener {
  public:
    void exchangeSeen(const Exchange_Record& exchange) override { exchanges.push_back(exchange); }
    void straySeen(const Stray_Record& stray) override { strays.push_back(stray); }
    void portNoted(Micros, const std::string& text) override { notes.push_back(text); }

    std::vector<Exchange_Record> exchanges;
    std::vector<Stray_Record> strays;
    std::vector<std::string> notes;
};

/// The link over a scripted port and a hand clock, with a slave behind it. With `faults` the slave answers
/// nothing by itself: the function gets the request's number (from 0) and the request, and sends whatever it
/// likes by `send`.
struct Link_Rig {
    using Fault = std::function<void(int number, const Byte_Array& request)>;

    explicit Link_Rig(const Port_Settings& settings = defaults())
        : link({port, clock, finder, asker, windows}, settings) {
        link.setTrafficListener(&log);
        port.onWrite = [this](const Byte_Array& request) { requested(request); };
    }

    static Port_Settings defaults() {
        Port_Settings settings;
        settings.port = "ttyUSB0";
        settings.line.baud = 9600;
        settings.retries = 2;
        settings.timeOutMs = 100;
        return settings;
    }

    /// A block for the slave of the port settings, read in mode NONE.
    void block(std::int32_t first, std::int32_t last, const std::string& request = "NONE") {
        std::int32_t slaveNumber = 0;
        link.AddScanBlock(first, last, false, request, slaveNumber);
    }
    void scan(const std::string& mode = "NONE") {
        link.SetScanMode(mode);
        link.PrepareScan();
        link.StartScan();
    }
    /// Bytes come in that long after the request's first byte went out.
    void send(const Byte_Array& bytes, Micros delay) {
        clock.in(delay, [this, bytes] { port.deliver(bytes); });
    }
    /// Bytes come in that long after the last request's last byte.
    void reply(const Byte_Array& bytes, Micros delay) { send(bytes, requestTime() + delay); }
    /// Time on the wire of the last request.
    [[nodiscard]] Micros requestTime() const {
        return wireTime(link.portSettings().line, port.written.back().size());
    }
    /// Runs until so many exchanges ended; false when they don't within ten seconds.
    bool exchanges(std::size_t count) {
        return clock.runUntilTrue([&] { return log.exchanges.size() >= count; }, 10 * microsPerSecond);
    }
    /// Runs until no write is busy; false when one hangs.
    bool writeEnds() {
        return clock.runUntilTrue([&] { return !link.WriteBusy(); }, 30 * microsPerSecond);
    }
    [[nodiscard]] std::vector<std::string> results() const {
        std::vector<std::string> texts;
        for (const Exchange_Record& exchange : log.exchanges) {
            texts.push_back(exchange.result);
        }
        return texts;
    }

    /// Where each exchange began.
    [[nodiscard]] std::vector<std::int32_t> firstRegisters() const {
        std::vector<std::int32_t> numbers;
        for (const Exchange_Record& exchange : log.exchanges)
            numbers.push_back(exchange.firstRegister);
        return numbers;
    }

    Hand_Clock clock;
    Scripted_Port port;
    Scripted_Finder finder;
    Scripted_Asker asker;
    No_Link_Windows windows;
    Traffic_Log log;
    Toy_Slave slave;
    Fault faults;
    Micros turnaround = 5 * microsPerMs;
    Modbus_Link link;

  private:
    void requested(const Byte_Array& request) {
        const int number = static_cast<int>(port.written.size()) - 1;
        if (faults) return faults(number, request);
        reply(slave.answer(request), turnaround);
    }
};

} // namespace zorvane::testing
