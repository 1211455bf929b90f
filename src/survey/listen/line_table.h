// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_settings.h"
#include "survey/listen/answer_times.h"
#include "survey/listen/heard_exchanges.h"

#include <cstdint>
#include <map>

namespace zorvane::survey {

/// One thing that is asked on a line, and how often.
struct Asking {
    std::uint64_t times = 0;
    std::uint64_t answered = 0; ///< refusals included
    std::uint64_t refused = 0;  ///< by an exception
    Micros firstAt = 0;
    Micros lastAt = 0;
    Answer_Times answerTimes;

    /// From one asking to the next on average; 0 below two.
    [[nodiscard]] Micros period() const;
};

/// The frames of one unit.
struct Unit_Traffic {
    std::uint64_t requests = 0;
    std::uint64_t answers = 0;  ///< exceptions included
    std::uint64_t refusals = 0; ///< answers that are exceptions
    std::uint64_t unpaired = 0; ///< requests without an answer, and answers without a request
    Answer_Times answerTimes;
};

/// Who asks what on a line, how often, and how fast it is answered: sums over what was heard. Requests to
/// unit 0 are for all, are never answered, and are none of the unpaired.
class Line_Table {
  public:
    /// Kept apart are so many different things that are asked; the requests beyond are counted with their
    /// unit.
    static constexpr std::size_t mostAskings = 10000;

    void take(const Heard_Exchange& exchange);

    [[nodiscard]] const std::map<std::uint8_t, Unit_Traffic>& units() const { return units_; }
    [[nodiscard]] const std::map<Asked, Asking>& askings() const { return askings_; }
    /// Of all units together.
    [[nodiscard]] Unit_Traffic sum() const;

  private:
    void takeRequest(const Heard_Exchange& exchange, Unit_Traffic& unit);

    std::map<std::uint8_t, Unit_Traffic> units_;
    std::map<Asked, Asking> askings_;
};

/// How much of the time so many bytes keep the line busy, in percent, at most 100. 0 for no time.
[[nodiscard]] double loadPercent(const Line_Settings& line, std::uint64_t bytes, Micros duration);

} // namespace zorvane::survey
