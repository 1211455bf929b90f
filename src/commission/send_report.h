// SPDX-License-Identifier: MIT
#pragma once

#include "commission/folder/journal.h"
#include "commission/sender.h"
#include "commission/taking_back.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::commission {

/// What became of a value.
enum class Value_State {
    Verified,         ///< read back after it was written
    Refused,          ///< by an exception
    Stored_Otherwise, ///< the controller holds something else
    Unknown,          ///< no answer and not readable
    Not_Sent,         ///< for a reason
};

inline constexpr std::array allValueStates = {Value_State::Verified, Value_State::Refused,
                                              Value_State::Stored_Otherwise, Value_State::Unknown,
                                              Value_State::Not_Sent};

/// "verified", "refused", "stored_otherwise", "unknown" or "not_sent".
[[nodiscard]] std::string_view valueStateWord(Value_State state) noexcept;

/// How many values have each state.
class Value_Counts {
  public:
    void add(Value_State state) { ++counts_[static_cast<std::size_t>(state)]; }
    [[nodiscard]] std::size_t of(Value_State state) const { return counts_[static_cast<std::size_t>(state)]; }
    [[nodiscard]] std::size_t rows() const;

  private:
    std::array<std::size_t, allValueStates.size()> counts_{};
};

[[nodiscard]] Json countsJson(const Value_Counts& counts);

/// Registers of a value, some of which may not be known.
using Known_Registers = std::vector<std::optional<std::uint16_t>>;

/// A value that was to be sent.
struct Sent_Row {
    Cell_Place place;
    std::string address;
    Known_Registers before;
    Known_Registers sent; ///< nothing for what wasn't sent
    Known_Registers readBack;
    Value_State state = Value_State::Not_Sent;
    std::string answer; ///< what the controller said, or why it wasn't sent
};

/// What became of each value of a plan.
struct Send_Report {
    std::vector<Sent_Row> rows;
    Value_Counts counts;
};
[[nodiscard]] Send_Report reportOf(const std::vector<Planned_Cell>& cells,
                                   const std::vector<Plan_Write>& writes,
                                   const std::map<std::int32_t, std::uint16_t>& before,
                                   const Send_Outcome& outcome);

/// The values that stop a plan or a run, each as not sent: their registers hold neither what was there nor
/// what was to be left.
[[nodiscard]] Send_Report strangeReport(const std::vector<Planned_Cell>& cells,
                                        const std::map<std::int32_t, std::uint16_t>& before,
                                        const std::vector<Strange_Register>& strange);

/// One object a value. A value of several registers is a list of numbers.
[[nodiscard]] Json rowsJson(const Send_Report& report);

} // namespace zorvane::commission
