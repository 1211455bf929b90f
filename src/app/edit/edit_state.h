// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <string>

namespace zorvane::app {

/// Why no command may change values now but the editor of a cell, as a sentence; "" when they may.
[[nodiscard]] std::string whyNoEditing(const App_Context& app);

/// Some cells have other values: the lower grid shows those of its page, and the title's mark and Save
/// follow. `asWritten` says that the document is as its file has it.
void showChangedValues(const App_Context& app, const std::vector<Cell_Place>& places, bool asWritten);

} // namespace zorvane::app
