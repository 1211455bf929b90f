#pragma once

#include "simulator/controller/modbus_slave.h"
#include "simulator/faults/fault_picker.h"
#include "simulator/registers/register_map.h"
#include "simulator/wire/frame_record.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
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
};

/// The simulated controller: its registers, what it does with a request, and what goes wrong with the answer.
/// The same registers, faults, seed and requests give the same reactions.
class Controller {
  public:
    /// `unit` from 1 to 247. REQUIRES: every register of the map has an address on the wire.
    Controller(const Register_Map& map, int unit, std::vector<Fault_Rule> faults, std::uint64_t seed);

    /// Takes a whole request whose check sum is right. Requests for other units lead to nothing, broadcasts
    /// are executed and not answered.
    [[nodiscard]] Reaction take(Bytes_View request);

    [[nodiscard]] bool checkSumRight(Bytes_View frame) { return slave_.checkSumRight(frame); }

    /// By register number. REQUIRES: the register exists.
    [[nodiscard]] std::uint16_t value(std::int32_t number) const;

    [[nodiscard]] std::int32_t addressBase() const noexcept { return addressBase_; }

  private:
    struct Live {
        std::uint16_t base = 0;
        Live_Range range;
        std::uint64_t readings = 0;
    };

    [[nodiscard]] std::optional<int> refusal(const Frame_Facts& facts) const;
    [[nodiscard]] Fault_Question question(const Frame_Facts& facts, bool refused) const;
    [[nodiscard]] Bytes rightAnswer(Bytes_View request, std::optional<int> exception);
    void answerTo(Bytes_View request, const Fault_Rule* fault, std::optional<int> exception,
                  Reaction& reaction);
    void noteWritten(const Frame_Facts& facts);
    void moveLive(const Frame_Facts& facts);

    Modbus_Slave slave_;
    Fault_Picker picker_;
    Dice dice_;
    int unit_;
    std::uint64_t seed_;
    std::int32_t addressBase_;
    std::set<std::uint16_t> known_; ///< addresses on the wire
    std::map<std::uint16_t, Live> live_;
};

} // namespace zorvane::simulator
