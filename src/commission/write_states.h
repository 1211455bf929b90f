// SPDX-License-Identifier: MIT
#pragma once

#include "commission/plan/plan.h"
#include "compare/controller_registers.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zorvane::commission {

/// How far a write of a plan has come.
enum class Write_Progress {
    Waiting, ///< nothing went out
    Sent,    ///< it may be in force: only a reading tells
    Refused, ///< by an exception
    Left_Out ///< it wasn't sent, for a reason
};

/// A write of the plan as it stands.
struct Write_Record {
    Write_Progress progress = Write_Progress::Waiting;
    std::vector<std::uint16_t> sent;                    ///< the values that went out last
    std::vector<std::optional<std::uint16_t>> readBack; ///< as read after the last write
    bool answered = false;                              ///< an acknowledgement came
    bool verified = false;                              ///< read back, and all that its cells set is there
    bool changedSince = false;                          ///< it was verified, and a later reading is otherwise
    bool astray = false;                                ///< it may have gone to another controller
    std::string answer;                                 ///< what the controller said, or why it wasn't sent
};

/// What is known of each write of a send, by its number. Readings tell what became of those that went out.
class Write_States {
  public:
    /// `writeOnly` are registers that can't be read back, `done` writes that went out before. The writes must
    /// outlive it.
    Write_States(const std::vector<Plan_Write>& writes, const std::vector<Register_Range>& writeOnly,
                 const std::set<std::size_t>& done);

    [[nodiscard]] std::size_t size() const { return records_.size(); }
    [[nodiscard]] const Plan_Write& plan(std::size_t number) const { return writes_[number]; }
    [[nodiscard]] Write_Record& record(std::size_t number) { return records_[number]; }
    [[nodiscard]] const Write_Record& record(std::size_t number) const { return records_[number]; }

    [[nodiscard]] bool someWait() const { return has(Write_Progress::Waiting); }
    [[nodiscard]] bool someWereSent() const { return has(Write_Progress::Sent); }
    [[nodiscard]] bool someAreVerified() const;

    /// Whether one of these registers can only be written.
    [[nodiscard]] bool isWriteOnly(const Register_Range& registers) const;
    [[nodiscard]] bool cantBeReadBack(std::size_t number) const {
        return isWriteOnly({plan(number).address, plan(number).last()});
    }
    /// The rows of a write's registers that can be read.
    [[nodiscard]] std::vector<Register_Range> readableRows(std::size_t number) const;

    /// The registers of what was sent; without `all` only those of what isn't verified yet.
    [[nodiscard]] std::set<std::int32_t> touched(bool all) const;
    /// Whether a reading holds all that was sent, isn't verified yet and can be read.
    [[nodiscard]] bool allThere(const compare::Controller_Registers& now) const;
    /// Takes a reading after the writes: what it holds is verified. A `last` one tells too what was verified
    /// and has changed since. Gives the numbers of the writes of which it holds all.
    std::vector<std::size_t> judge(const compare::Controller_Registers& now, bool last);

    [[nodiscard]] std::vector<Write_Record> take() { return std::move(records_); }

  private:
    [[nodiscard]] bool has(Write_Progress progress) const;
    [[nodiscard]] std::vector<std::optional<std::uint16_t>>
    found(std::size_t number, const compare::Controller_Registers& now) const;
    [[nodiscard]] bool holds(std::size_t number, const std::vector<std::optional<std::uint16_t>>& now) const;

    const std::vector<Plan_Write>& writes_;
    std::vector<Register_Range> writeOnly_;
    std::vector<Write_Record> records_;
};

} // namespace zorvane::commission
