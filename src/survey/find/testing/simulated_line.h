// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/mbap_frame.h"
#include "comm/modbus_control/line/byte_port.h"
#include "comm/modbus_control/line/network_port.h"
#include "comm/modbus_control/testing/hand_clock.h"
#include "comm/modbus_control/testing/toy_slave.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace zorvane::survey::testing {

/// A controller on a simulated line.
struct Line_Controller {
    std::uint8_t unit = 1;
    Micros shortestDelay = 5 * microsPerMs; ///< from the request's last byte to the answer's first
    Micros longestDelay = 5 * microsPerMs;
    std::map<std::uint16_t, std::uint16_t> registers{{0, 7}}; ///< others are refused with exception 2
    bool silentWhereNone = false;                             ///< and not even that
    double damaged = 0;                                       ///< so many of its answers lose a bit
    int damagedFirst = 0;                                     ///< and so many of the first ones for certain
    std::uint8_t answersAs = 0;                               ///< the number in its answers; 0: its own
    bool counts = false;                                      ///< its registers go up with each reading
};

/// Another master that asks over and over, and what answers it.
struct Line_Master {
    Micros firstAt = 0; ///< after the port was opened
    Micros period = microsPerSecond;
    Byte_Array request;
    Byte_Array answer = {};
};

/// A half-duplex line in memory with controllers on it, by its own clock. What goes at the wrong baud or
/// parity is heard by nobody, or comes in as rubbish; what is sent at the same time spoils itself.
class Simulated_Line final : public Byte_Port {
  public:
    Simulated_Line(zorvane::testing::Hand_Clock& clock, const Line_Settings& line, std::uint64_t seed = 1)
        : clock_(clock), line_(line), dice_(seed) {}

    std::vector<Line_Controller> controllers;
    std::vector<Line_Master> masters;
    bool echoes = false; ///< the adapter gives back what is sent
    double noise = 0;    ///< bytes a second that nobody sent
    bool opens = true;
    std::uint8_t gateway = 0; ///< the exception for units that aren't there; 0: silence
    Micros network = 0;       ///< a way over a network takes so long; opening then goes on
    int refusedBaud = 0;      ///< that a server on the network doesn't take
    Micros gatewayDelay = 5 * microsPerMs;
    int opened = 0; ///< so often

    std::vector<Byte_Array> written;      ///< all that was sent
    std::vector<Line_Settings> linesUsed; ///< in order

    void setListener(Byte_Port_Listener* listener) override { listener_ = listener; }
    Port_Opening open(const std::string& name, const Port_Settings& settings) override {
        numbered_ = framingOf(name).numbersRequests();
        ++opened;
        if (!opens && network == 0) return {false, "No such port: " + name, {}};
        begin();
        if (network > 0) return goOn(settings.line);
        open_ = true;
        use(settings.line);
        return {true, {}, {}};
    }
    Line_Change changeLine(const Line_Settings& line) override {
        if (network > 0) {
            static_cast<void>(goOn(line));
            return Line_Change::GoesOn;
        }
        use(line);
        return Line_Change::Done;
    }
    void close() override {
        open_ = false;
        ++closings_;
    }
    [[nodiscard]] bool isOpen() const override { return open_; }
    void setRts(bool /*on*/) override {}
    Byte_Array discardInput() override { return {}; }

    bool write(Byte_View bytes) override {
        written.emplace_back(bytes.begin(), bytes.end());
        if (numbered_) {
            answerNumbered(bytes);
            return true;
        }
        const Byte_Array request = written.back();
        const Micros begin = clock_.now();
        const Micros end = begin + wireTime(ours_, request.size());
        if (echoes) send(request, begin, ours_);
        if (!understood()) return true;
        bool reached = false;
        for (Line_Controller& controller : controllers) {
            if (controller.unit != request[0]) continue;
            reached = true;
            answer(controller, request, end);
        }
        if (!reached && gateway != 0)
            send(zorvane::testing::withCrc({request[0], 0x83, gateway}), end + 5 * microsPerMs, line_);
        return true;
    }

    /// Takes the adapter away.
    void unplug() {
        open_ = false;
        if (listener_ != nullptr) listener_->portLost("Input/output error");
    }

  private:
    void begin() {
        if (std::exchange(begun_, true)) return;
        for (const Line_Master& master : masters)
            clock_.in(master.firstAt, [this, master] { masterAsks(master); });
        if (noise > 0) planNoise();
    }

    /// The end of an opening comes over the network, unless the port is closed before.
    Port_Opening goOn(const Line_Settings& line) {
        open_ = false;
        clock_.in(network, [this, line, closings = closings_] {
            if (closings != closings_ || listener_ == nullptr) return;
            const bool refused = line.baud == refusedBaud;
            open_ = opens && !refused;
            if (open_) use(line);
            const std::string reason = !opens ? "Refused." : refused ? "The server has no such rate." : "";
            listener_->openingEnded({open_, reason, {}, false, opens && refused});
        });
        return {false, {}, {}, true};
    }

    /// Frames of Modbus TCP: a server, or a gateway that knows its units.
    void answerNumbered(Byte_View frame) {
        const Byte_Array request(frame.begin() + mbapHead, frame.end());
        const auto send = [&](Byte_Array body, Micros delay) {
            Byte_Array answer = {frame[0], frame[1], 0, 0, 0, static_cast<std::uint8_t>(body.size())};
            answer.insert(answer.end(), body.begin(), body.end());
            clock_.in(network + behindOthers(delay), [this, answer] {
                if (open_ && listener_ != nullptr) listener_->bytesArrived(answer);
            });
        };
        for (Line_Controller& controller : controllers) {
            if (controller.unit != request[0]) continue;
            Byte_Array body = answerOf(controller, request);
            if (body.empty()) return;
            body.resize(body.size() - 2);
            return send(std::move(body), between(controller.shortestDelay, controller.longestDelay));
        }
        if (gateway != 0) send({request[0], 0x83, gateway}, gatewayDelay);
    }
    /// It asks its line for one after the other.
    [[nodiscard]] Micros behindOthers(Micros delay) {
        gatewayFreeAt_ = std::max(gatewayFreeAt_, clock_.now()) + delay;
        return gatewayFreeAt_ - clock_.now();
    }

    struct Transmission {
        Micros begin;
        Micros end;
    };

    void use(const Line_Settings& line) {
        ours_ = line;
        linesUsed.push_back(line);
    }
    [[nodiscard]] bool sameForm(const Line_Settings& as) const {
        return ours_.baud == as.baud && ours_.parity == as.parity && ours_.dataBits == as.dataBits;
    }
    /// A controller that waits for two stop bits takes no frame with one.
    [[nodiscard]] bool understood() const { return sameForm(line_) && ours_.stopBits >= line_.stopBits; }
    [[nodiscard]] Micros between(Micros least, Micros most) {
        return std::uniform_int_distribution<Micros>(least, most)(dice_);
    }
    [[nodiscard]] std::uint8_t anyByte() { return static_cast<std::uint8_t>(between(0, 255)); }
    [[nodiscard]] bool happens(double chance) { return std::bernoulli_distribution(chance)(dice_); }

    void answer(Line_Controller& controller, const Byte_Array& request, Micros requestEnd) {
        const Byte_Array bytes = answerOf(controller, request);
        if (bytes.empty()) return;
        send(bytes, requestEnd + between(controller.shortestDelay, controller.longestDelay), line_);
    }
    [[nodiscard]] Byte_Array answerOf(Line_Controller& controller, const Byte_Array& request) {
        const auto address = static_cast<std::uint16_t>(request[2] * 256U + request[3]);
        const auto held = controller.registers.find(address);
        const std::uint8_t unit = controller.answersAs != 0 ? controller.answersAs : controller.unit;
        Byte_Array bytes;
        if (held == controller.registers.end()) {
            if (controller.silentWhereNone) return {};
            bytes = zorvane::testing::withCrc({unit, 0x83, 2});
        } else {
            if (controller.counts) ++held->second;
            const std::uint16_t value = held->second;
            bytes = zorvane::testing::withCrc({unit, 3, 2, static_cast<std::uint8_t>(value >> 8U),
                                               static_cast<std::uint8_t>(value & 0xFFU)});
        }
        if (controller.damagedFirst > 0) {
            --controller.damagedFirst;
            bytes.back() ^= 0x10U;
        }
        if (happens(controller.damaged)) bytes[static_cast<std::size_t>(between(0, 4))] ^= 0x10U;
        return bytes;
    }

    /// The bytes come in one by one, each when its last bit has passed.
    void send(const Byte_Array& bytes, Micros begin, const Line_Settings& as) {
        const auto passing =
            std::make_shared<Transmission>(Transmission{begin, begin + wireTime(as, bytes.size())});
        clock_.at(begin, [this, passing] {
            std::erase_if(passing_, [this](const auto& each) { return each->end < clock_.now(); });
            passing_.push_back(passing);
        });
        for (std::size_t i = 0; i < bytes.size(); ++i)
            clock_.at(begin + wireTime(as, i + 1), [this, passing, byte = bytes[i], as] {
                const bool first =
                    passing_.empty() || passing_.front() == passing || passing_.front()->end < clock_.now();
                const auto others = std::count_if(passing_.begin(), passing_.end(), [&](const auto& each) {
                    return each != passing && each->begin < clock_.now() && each->end > clock_.now();
                });
                if (!first && others > 0) return;
                deliver(others > 0 || !sameForm(as) ? anyByte() : byte);
            });
    }
    void deliver(std::uint8_t byte) {
        if (open_ && listener_ != nullptr) listener_->bytesArrived({&byte, 1});
    }
    void masterAsks(const Line_Master& master) {
        send(master.request, clock_.now(), line_);
        const Micros end = clock_.now() + wireTime(line_, master.request.size());
        if (!master.answer.empty()) send(master.answer, end + 5 * microsPerMs, line_);
        clock_.in(master.period, [this, master] { masterAsks(master); });
    }
    void planNoise() {
        const auto wait =
            static_cast<Micros>(std::exponential_distribution<double>(noise)(dice_) * microsPerSecond);
        clock_.in(wait, [this] {
            deliver(anyByte());
            planNoise();
        });
    }

    zorvane::testing::Hand_Clock& clock_;
    Line_Settings line_;
    Line_Settings ours_;
    std::mt19937_64 dice_;
    Byte_Port_Listener* listener_ = nullptr;
    bool open_ = false;
    bool begun_ = false;
    bool numbered_ = false;
    int closings_ = 0;
    Micros gatewayFreeAt_ = 0;
    std::vector<std::shared_ptr<Transmission>> passing_;
};

} // namespace zorvane::survey::testing
