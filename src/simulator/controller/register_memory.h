// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/controller/modbus_slave.h"
#include "simulator/faults/quirk_rule.h"
#include "simulator/registers/register_map.h"
#include "simulator/wire/bytes.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <vector>

namespace zorvane::simulator {

/// Keeps what outlasts a power cut: every register by its number. May throw what a file throws.
using Keep_Registers = std::function<void(const std::map<std::int32_t, std::uint16_t>&)>;

/// The registers of a controller over time, over libmodbus's table: which there are, which move by
/// themselves, which take a value late, and what outlasts a power cut. Moments never go back.
class Register_Memory {
  public:
    Register_Memory(Modbus_Slave& slave, std::uint64_t seed) : slave_(slave), seed_(seed) {}

    /// The registers of another controller, and nothing of the one before. REQUIRES: every register of the
    /// map has an address on the wire.
    void load(const Register_Map& map, std::vector<const Quirk_Rule*> drifts);

    /// What is written is stored `delay` later, and each change of what is stored is kept; also what is
    /// stored now. Without this a write is stored at once and a power cut loses nothing of it.
    void storeLate(std::chrono::milliseconds delay, Keep_Registers keep);
    /// Nothing is kept any more.
    void stopKeeping() { keep_ = nullptr; }

    [[nodiscard]] std::int32_t addressBase() const noexcept { return addressBase_; }
    [[nodiscard]] bool knows(std::uint16_t address) const { return known_.contains(address); }
    [[nodiscard]] bool refusesReading(std::uint16_t address) const {
        return stored_.writeOnly.contains(address + addressBase_);
    }
    /// What the register holds, though it may still be read as something else.
    [[nodiscard]] std::uint16_t value(std::uint16_t address) const;
    /// By register number; nothing for one that isn't there.
    [[nodiscard]] std::optional<std::uint16_t> numbered(std::int32_t number) const;

    /// The register holds this from now on, and is read so after `hidden`. It doesn't move by its readings
    /// any more. It is stored by `elapse`, so a block is stored as a whole.
    void write(std::uint16_t address, std::uint16_t value, Instant now, std::chrono::milliseconds hidden);
    /// The next reading of a live register gives its next value.
    void hasBeenRead(std::uint16_t address);

    /// Lets time pass: what is due comes into its register and into what is stored.
    void elapse(Instant now);
    /// When a write is stored next.
    [[nodiscard]] std::optional<Instant> nextStore() const;
    /// What wasn't stored yet is lost; the registers hold what was.
    void losePower();

  private:
    struct Live {
        std::uint16_t base = 0;
        Live_Range range;
        std::uint64_t readings = 0;
    };
    struct Hidden {
        std::uint16_t value = 0;
        Instant until;
    };
    struct Drift {
        std::chrono::milliseconds step{0};
        std::optional<Instant> since;
    };
    struct Unstored {
        Instant due;
        std::uint16_t address = 0;
        std::uint16_t value = 0;
    };

    void fill();
    void uncover(Instant now);
    void drift(Instant now);
    void storeDue(Instant now);
    void keepStored() const;

    Modbus_Slave& slave_;
    std::uint64_t seed_;
    std::int32_t addressBase_ = 0;
    Register_Map stored_;
    std::set<std::uint16_t> known_; ///< addresses on the wire
    std::map<std::uint16_t, Live> live_;
    std::map<std::uint16_t, Hidden> hidden_; ///< what the register holds, while it is read as before
    std::vector<const Quirk_Rule*> drifts_;
    std::map<std::uint16_t, Drift> drifting_;
    std::deque<Unstored> unstored_;
    std::chrono::milliseconds storeDelay_{0};
    Keep_Registers keep_;
};

} // namespace zorvane::simulator
