// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/units/unit_access.h"
#include "commission/folder/run_journal.h"
#include "commission/plan/line_change.h"
#include "commission/plan/plan.h"
#include "commission/question.h"
#include "commission/write_states.h"
#include "compare/controller_registers.h"

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace zorvane::commission {

/// How a send ended.
enum class Send_End {
    Finished,
    Interrupted,      ///< by a wish, a lost line, or a folder that can't be written
    Wrong_Controller, ///< somebody else is at the other end
    Unit_Taken,       ///< the new unit number answers already: nothing was sent
};

struct Request_Counts {
    std::size_t reads = 0;
    std::size_t writes = 0;
    std::size_t damaged = 0;
};

struct Send_Outcome {
    Send_End end = Send_End::Finished;
    std::string why; ///< of any other end than Finished
    std::vector<Write_Record> writes;
    Request_Counts requests;
    std::int32_t unit = 0;               ///< under which the controller answers now
    compare::Controller_Registers after; ///< the touched registers as they were read last

    /// Whether any request to write went out.
    [[nodiscard]] bool somethingWritten() const;
};

/// What a sender works with. All must outlive it.
struct Send_Services {
    Unit_Writer& line;
    Controller_Question& question;
    Run_Journal& journal;
    std::function<bool()> stopWanted{}; ///< no further value is to be sent; may be empty
    std::function<void(std::size_t done, std::size_t all)> told{}; ///< after each write; may be empty
    /// A controller that doesn't answer is waited for, for `comeBackTime` at most; with the reason. May be
    /// empty.
    std::function<void(const std::string& why)> waits{};
};

inline constexpr Micros comeBackTime =
    10 * microsPerSecond; ///< a controller that starts again may take so long

/// What is to be sent.
struct Send_Order {
    const std::vector<Plan_Write>& writes;
    const std::map<std::int32_t, std::uint16_t>& before; ///< of the registers that the writes touch
    std::vector<Register_Range> blocks;                  ///< of the template, for readings
    std::vector<Register_Range> writeOnly;               ///< registers that can't be read back
    std::vector<Line_Change> lineChanges;
    std::int32_t unit = 1;
    Line_Settings line;
    std::int32_t retries = 3; ///< further tries of a write that was found not taken
    /// Writes that are done already, as a resumed run finds them.
    std::set<std::size_t> done{};
};

/// Sends the writes of a plan, one after the other, and reads back what became of them. Before each write its
/// intent is on disk; a value whose state is unknown is never sent again without a reading between.
[[nodiscard]] Send_Outcome send(const Send_Services& services, const Send_Order& order);

} // namespace zorvane::commission
