// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/rtu_transaction.h"
#include "survey/listen/answer_times.h"

#include <cstdint>
#include <optional>
#include <set>

namespace zorvane::survey {

/// What became of one read of a search.
enum class Try_Kind {
    Silence,  ///< nothing, only the adapter's echo, or a byte or two of noise
    Answer,   ///< registers
    Refusal,  ///< an exception of the unit's own
    Gateway,  ///< a gateway says that it can't reach the unit (exceptions 10 and 11)
    Stranger, ///< a whole answer of another unit
    Damaged,  ///< bytes that are no whole answer
};
/// Of a read over the port of the settings.
[[nodiscard]] Try_Kind kindOf(const Try_Result& result, const Port_Settings& port);

/// Whether it says that a gateway can't reach the unit.
[[nodiscard]] bool isGatewayException(std::uint8_t code) noexcept;

/// From the request's last byte on the line to the answer's end; of Modbus TCP from the request on.
/// REQUIRES: an answer.
[[nodiscard]] Micros answerTimeOf(const Try_Result& result, const Port_Settings& port);

/// One unit asked again and again. It is there once it refused, or gave the same answer twice: noise and
/// chance don't do that.
class Unit_Trial {
  public:
    enum class Next { Ask, Found, NotThere };

    /// So often a unit is tried before it is given up.
    static constexpr int usualPatience = 12;

    /// `reads` answers are wanted of a unit that is there. One of which nothing but damaged answers came is
    /// tried `patience` times.
    explicit Unit_Trial(int reads, int patience = usualPatience) : reads_(reads), patience_(patience) {}

    [[nodiscard]] Next take(const Try_Result& result, const Port_Settings& port);
    /// So many answers came beside those that were taken.
    void answeredAgain(std::int32_t times) { damaged_ += times; }

    [[nodiscard]] bool isThere() const { return there_; }
    [[nodiscard]] const Answer_Times& times() const { return times_; }
    /// Answers that were damaged, or came twice.
    [[nodiscard]] std::int32_t damaged() const { return damaged_; }
    /// Whether so many answers were damaged that it was hardly noise.
    [[nodiscard]] bool mostlyDamaged() const;
    /// Silent tries since the last that brought anything.
    [[nodiscard]] int silentInARow() const { return silent_; }
    /// The code of the first refusal.
    [[nodiscard]] std::optional<std::uint8_t> refusal() const { return refusal_; }

  private:
    [[nodiscard]] Next next() const;

    int reads_;
    int patience_;
    int tries_ = 0;
    int silent_ = 0;
    bool there_ = false;
    std::int32_t damaged_ = 0;
    std::set<std::uint16_t> values_;
    std::optional<std::uint8_t> refusal_;
    Answer_Times times_;
};

} // namespace zorvane::survey
