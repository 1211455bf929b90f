// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

namespace zorvane::app {

/// Whether changed cells are marked. On at first.
[[nodiscard]] bool marksChangedCells(const App_Context& app);

/// "Mark &changed cells": turns the marks on or off and remembers it.
void MNU_MarkChanged_Click(const App_Context& app);

/// Whether the cell at a row and column of the lower grid carries the mark. While online none does: its
/// values are the controller's.
[[nodiscard]] bool isMarkedChanged(const App_Context& app, std::int32_t row, std::int32_t col);

/// Tells the message bar how many values differ from the file.
void tellChangedCount(const App_Context& app);

/// Brings that line up to date where it stands; one that was closed stays away.
void refreshChangedCount(const App_Context& app);

} // namespace zorvane::app
