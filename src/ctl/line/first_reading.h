// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "ctl/document/rehearsal.h"

#include <optional>
#include <string>
#include <vector>

namespace zorvane::ctl {

/// What a download reads before its first write, on the same opening of the port.
///
/// What a write is built from besides the cell (the other half of a register, the other part of a time, the
/// rest of a block) has to be read from the controller. A download that needs nothing of the kind reads one
/// block all the same: an adapter that echoes makes its own write look acknowledged, and only an answer to a
/// read proves that a controller is there.
struct First_Reading {
    bool lost = false; ///< the port couldn't be opened, which the link has told, or nothing answered
    /// Why nothing may be written: a text for each block or range of registers (Windows-1252).
    std::vector<std::string> obstacles;
    std::vector<Info_Rec_Errors> errors; ///< a record for each block that wasn't read

    [[nodiscard]] bool mayWrite() const { return !lost && obstacles.empty(); }
};

/// Reads the blocks that hold a register of `plan.asked`, else the first scan block, else the first register
/// that the plan writes. Ends early when the form's `Cancel_Requested` is set.
[[nodiscard]] First_Reading readBeforeWriting(const Comm_Context& comm, const Download_Plan& plan);

} // namespace zorvane::ctl
