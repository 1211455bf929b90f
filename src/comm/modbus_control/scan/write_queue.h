// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace zorvane {

/// A write that the system asked for: function 6, or function 16 in as many frames as it takes.
struct Write_Job {
    std::int32_t slave = 0;
    std::int32_t first = 0;
    bool single = true; ///< function 6
    std::vector<std::uint16_t> values;
    std::size_t done = 0;    ///< values answered well so far
    std::int32_t tries = 0;  ///< of the present frame
    bool unanswered = false; ///< the present frame went out, and no answer has come to it

    /// The values of the present frame, at most 123.
    [[nodiscard]] std::vector<std::uint16_t> frameValues() const;
    [[nodiscard]] std::int64_t frameFirst() const { return first + static_cast<std::int64_t>(done); }
};

/// The writes that wait or are under way, in the order of their calls.
class Write_Queue {
  public:
    /// Function 6.
    void addSingle(std::int32_t slave, std::int32_t address, std::int32_t value);
    /// Function 16. The low 16 bits of each value go out.
    void addMultiple(std::int32_t slave, std::int32_t first, const std::vector<std::int32_t>& values);

    [[nodiscard]] bool empty() const { return jobs_.empty(); }
    /// REQUIRES: not empty.
    [[nodiscard]] Write_Job& front() { return jobs_.front(); }
    [[nodiscard]] const Write_Job& front() const { return jobs_.front(); }
    /// The present frame of the first job was answered well. True when that ended the job.
    bool frameDone();
    /// The first job ends.
    void drop() { jobs_.pop_front(); }
    void clear() { jobs_.clear(); }

  private:
    std::deque<Write_Job> jobs_;
};

} // namespace zorvane
