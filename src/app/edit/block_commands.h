// SPDX-License-Identifier: MIT
#pragma once

#include "app/edit/fit_question.h"
#include "app/form/app_context.h"
#include "edit/block_paste.h"

#include <string>

namespace zorvane::app {

/// The cells selected in the lower grid.
[[nodiscard]] edit::Cell_Range selectedCells(const Grid_Context& grids);

/// "Paste &block": puts the texts of a spreadsheet into the cells from the upper left corner of the selection
/// on; a single one into all of it. They are judged as a whole before anything changes, and where some don't
/// fit the user is asked. It is one step.
void MNU_PasteBlock_Click(const App_Context& app, const std::string& clipboard, const Ask_Fit& ask);

} // namespace zorvane::app
