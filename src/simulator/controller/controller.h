// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/controller/device_identification.h"
#include "simulator/controller/modbus_slave.h"
#include "simulator/controller/register_memory.h"
#include "simulator/faults/fault_effect.h"
#include "simulator/faults/fault_picker.h"
#include "simulator/faults/quirk_effect.h"
#include "simulator/faults/quirk_picker.h"
#include "simulator/registers/register_map.h"
#include "simulator/wire/frame_record.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::simulator {

/// Bytes that go to the client because of a request.
struct Outgoing {
    Bytes bytes;
    bool localEcho = false;             ///< passes while the request itself passes, not after it
    std::chrono::milliseconds delay{0}; ///< on top of silence and turnaround
    Frame_Record record;
};

/// What a request leads to.
struct Reaction {
    Frame_Record received;
    std::vector<Outgoing> outgoing;
    std::optional<std::chrono::milliseconds> unplug; ///< the line goes away for so long
    bool powerOff = false;                           ///< nothing goes out any more
    std::vector<std::string> events;                 ///< what happened to the controller itself, for the log
};

/// Another controller that takes the place of the first one.
struct Exchange {
    int after = 1; ///< so many requests were for the first one
    Register_Map registers;
};

/// What a controller has beside its registers.
struct Controller_Traits {
    std::vector<Quirk_Rule> quirks;
    std::chrono::milliseconds storeDelay{0}; ///< from a write until it outlasts a power cut
    Keep_Registers keep;                     ///< told of all that outlasts one, at once and at each change
    std::optional<Exchange> exchange;
};

/// The simulated controller: its registers, what it does with a request, and what goes wrong with the answer.
/// The same registers, faults, quirks, seed, requests and moments give the same reactions.
class Controller {
  public:
    /// `unit` from 1 to 247. REQUIRES: every register of the map has an address on the wire.
    Controller(const Register_Map& map, int unit, std::vector<Fault_Rule> faults, std::uint64_t seed,
               Controller_Traits traits = {});
    Controller(const Controller&) = delete;
    Controller& operator=(const Controller&) = delete;

    /// Takes a whole request whose check sum is right. Requests for other units lead to nothing, broadcasts
    /// are executed and not answered. Moments never go back. Without an envelope answers go out as they are.
    [[nodiscard]] Reaction take(Bytes_View request, Instant now = {}, const Envelope& envelope = {});

    /// Unit, function and data with their check sum behind them.
    [[nodiscard]] Bytes sealed(Bytes_View body) { return slave_.sealed(body); }
    [[nodiscard]] bool checkSumRight(Bytes_View frame) { return slave_.checkSumRight(frame); }

    /// When something happens without a request.
    [[nodiscard]] std::optional<Instant> nextMoment() const;
    /// Lets what is due by now happen. Gives what happened to the controller itself, for the log.
    [[nodiscard]] std::vector<std::string> elapse(Instant now);

    /// By register number. REQUIRES: the register exists.
    [[nodiscard]] std::uint16_t value(std::int32_t number) const;

    [[nodiscard]] std::int32_t addressBase() const noexcept { return memory_.addressBase(); }

  private:
    using Quirks = std::vector<const Quirk_Rule*>;

    [[nodiscard]] std::optional<int> refusal(Bytes_View request, const Frame_Facts& facts);
    [[nodiscard]] std::optional<int> quirkRefusal(const Frame_Facts& facts);
    [[nodiscard]] Touched_Registers touched(const Frame_Facts& facts) const;
    void execute(Bytes_View request, Reaction& reaction, Instant now, const Envelope& envelope);
    [[nodiscard]] Bytes rightAnswer(Bytes_View request, std::optional<int> exception, Frame_Record& received,
                                    Instant now);
    [[nodiscard]] Bytes writeAnswer(Bytes_View request, Frame_Record& received, Instant now);
    [[nodiscard]] Bytes identification(Bytes_View request);
    void answerTo(Bytes_View request, const Fault_Rule* fault, std::optional<int> exception,
                  Reaction& reaction, Instant now, const Envelope& envelope);
    [[nodiscard]] bool powerIsCut(const Frame_Facts& facts, Reaction& reaction, Instant now);
    void exchangeWhenDue(Reaction& reaction);

    Modbus_Slave slave_;
    Register_Memory memory_;
    Fault_Picker picker_;
    Quirk_Picker quirks_;
    Dice dice_;
    int unit_;
    Device_Objects objects_;
    std::optional<Exchange> exchange_;
    std::optional<int> newUnit_; ///< from the next request on
    int taken_ = 0;              ///< requests for this controller
    std::optional<Instant> powerBackAt_;
};

} // namespace zorvane::simulator
