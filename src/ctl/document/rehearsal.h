// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/main_form_state.h"
#include "comm/modbus_control/dry_run_link.h"
#include "compare/register_file.h"
#include "ctl/document/held_form.h"
#include "ctl/document/opened_document.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zorvane::ctl {

/// Fills the cells of every field from a register image, as a finished upload does. The failure that ended
/// it, if any; the cells before it keep their new values.
[[nodiscard]] std::optional<Failure_Note> applyRegisters(Declara_Zorvane& document,
                                                         const compare::Register_Values& registers);

/// What a download would do.
struct Download_Plan {
    std::vector<Planned_Write> writes;
    std::vector<std::string> panel4; ///< the texts of the message panel, in order
    std::optional<Failure_Note> failure;
    /// Registers whose values its writes are built from.
    std::set<std::int32_t> asked;
};

/// Runs a download over a register image in which each write succeeds at once.
[[nodiscard]] Download_Plan planDownload(Declara_Zorvane& document, const compare::Register_Values& registers,
                                         const Grid_Selection& selection);

/// Where the current cells stand after the grids were filled: the lower grid's on its last cell.
[[nodiscard]] Grid_Selection freshSelection(const Declara_Zorvane& document);

} // namespace zorvane::ctl
