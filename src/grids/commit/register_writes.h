// SPDX-License-Identifier: MIT
#pragma once

#include "grids/commit/live_write.h"

#include <cstdint>
#include <string>

namespace zorvane {

/// A number, or one half of a time held in seconds. Only a cell of a whole register is written; any other
/// goes through the motions and ends as if it had been. A failed write brings the old value back.
class Number_Write final : public Live_Write_Variant {
  public:
    /// The number as typed, the register for a negative one in the column's own format, and the old `Value`.
    struct Number {
        std::string text;
        std::int32_t Raw_Negative = 0;
        std::int32_t Old_Value = 0;
    };

    Number_Write(const Grid_Context& grids, std::int32_t row, std::int32_t col, Number number)
        : grids_(grids), row_(row), col_(col), number_(std::move(number)) {}

    void start() override;
    void failed() override;
    void succeeded() override;
    void close() override;

  private:
    [[nodiscard]] Cell_Rec& cell() const { return grids_.cell(row_, col_); }
    void show(Write_Progress progress) const;

    const Grid_Context& grids_;
    std::int32_t row_;
    std::int32_t col_;
    Number number_;
};

/// A time, written as seconds to whatever number the address begins with.
class Time_Write final : public Live_Write_Variant {
  public:
    Time_Write(const Grid_Context& grids, std::int32_t row, std::int32_t col, std::string time)
        : grids_(grids), row_(row), col_(col), time_(std::move(time)) {}

    void start() override;
    void failed() override;
    void succeeded() override;

  private:
    [[nodiscard]] Cell_Rec& cell() const { return grids_.cell(row_, col_); }

    const Grid_Context& grids_;
    std::int32_t row_;
    std::int32_t col_;
    std::string time_;
};

/// A whole register of seconds out of the half that a cell holds, minutes or seconds by its `Format`, and the
/// other half out of `registerValue`. A cell of any other format gives its own text.
[[nodiscard]] std::string joinedTime(const Cell_Rec& cell, const std::string& half,
                                     std::int32_t registerValue);

/// The half that the cell shows, out of the whole.
[[nodiscard]] std::string splitTime(const Cell_Rec& cell, const std::string& whole);

} // namespace zorvane
