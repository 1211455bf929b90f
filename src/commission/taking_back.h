// SPDX-License-Identifier: MIT
#pragma once

#include "commission/runs.h"
#include "compare/controller_registers.h"
#include "compare/identity.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zorvane::commission {

/// A register that holds neither what a run left there nor what was there before.
struct Strange_Register {
    std::int32_t number = 0;
    std::optional<std::uint16_t> before;
    std::uint16_t left = 0;
    std::uint16_t now = 0;
};

/// How a run goes on, or is taken back.
struct Further_Writes {
    std::vector<Plan_Write> writes;
    std::set<std::size_t> done;            ///< writes that need nothing any more
    std::vector<Strange_Register> strange; ///< then nothing may be written
    std::vector<Register_Range> unread;    ///< registers that gave no value: then nothing may be written
    std::vector<Planned_Cell> impossible;  ///< values that can't be put back, each with the reason
};

/// The writes of a run's plan that aren't in force yet. `writes` is the paper's, with parts and stages.
[[nodiscard]] Further_Writes furtherWrites(const Kept_Run& run, const std::vector<Plan_Write>& writes,
                                           const compare::Controller_Registers& now,
                                           const Identity_Section& section);

/// The writes that put back what was there before a run, in reverse order, those that change the line last.
[[nodiscard]] Further_Writes restoringWrites(const Kept_Run& run, const std::vector<Plan_Write>& writes,
                                             const std::vector<Planned_Cell>& cells,
                                             const compare::Controller_Registers& now,
                                             const Identity_Section& section);

/// How a register of a run stands now.
enum class Left_Sign { As_Left, Changed, Not_Read };

/// "as_left", "changed" or "not_read".
[[nodiscard]] std::string_view leftSignWord(Left_Sign sign) noexcept;

struct Left_Row {
    std::int32_t number = 0;
    std::optional<std::uint16_t> left; ///< nothing where no write went out, and nobody ever read it
    std::optional<std::uint16_t> now;
    Left_Sign sign = Left_Sign::Not_Read;
};

/// Each register that the run's writes set, beside what the run left there.
[[nodiscard]] std::vector<Left_Row> leftRows(const Kept_Run& run, const std::vector<Plan_Write>& writes,
                                             const compare::Controller_Registers& now);

/// Whether one of the writes sets the serial number by which the controller is known.
[[nodiscard]] bool setsSerial(const std::vector<Plan_Write>& writes, const Identity_Section& section);

/// Why the controller isn't the one of the run, by its serial number, in UTF-8. Empty when it is, when the
/// number isn't known, or when the run wrote it.
[[nodiscard]] std::string anotherController(const Kept_Run& run, const Identity_Section& section,
                                            const compare::Identity& identity);

/// The unit number under which the run's controller answered last.
[[nodiscard]] std::int32_t unitOf(const Kept_Run& run);
/// The line settings, such as "9600,n,8,1", with which it did.
[[nodiscard]] std::string settingsOf(const Kept_Run& run);

} // namespace zorvane::commission
