// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/link_clock.h"

#include <cstdint>
#include <map>

namespace zorvane::survey {

/// How long answers took. Any number of them takes little room: times are kept to a tenth of a millisecond.
class Answer_Times {
  public:
    void add(Micros time);

    [[nodiscard]] std::uint64_t count() const { return count_; }
    /// The time that so many percent of the answers took at most, by nearest rank; 0 without any.
    /// REQUIRES: 1 to 100.
    [[nodiscard]] Micros percentile(unsigned percent) const;
    [[nodiscard]] Micros median() const { return percentile(50); }
    [[nodiscard]] Micros p99() const { return percentile(99); }

  private:
    std::map<std::int64_t, std::uint64_t> tenths_; ///< of a millisecond
    std::uint64_t count_ = 0;
};

/// So many reads tell enough of a controller's answer times to propose a time-out.
inline constexpr std::uint64_t readsForProposal = 50;

/// The time-out in ms that the times suggest: three times the 99th percentile, at least 50 ms more than it,
/// up to the next 50 ms. 0 without any answer.
[[nodiscard]] std::int32_t proposedTimeOutMs(const Answer_Times& times);

} // namespace zorvane::survey
