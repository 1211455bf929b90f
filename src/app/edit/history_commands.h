// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"
#include "edit/wanted_value.h"

#include <string>
#include <vector>

namespace zorvane::app {

/// How an entry of the menu "Edit" stands.
struct Step_Entry {
    std::string caption; ///< "Undo upload of 312 values"; without a mnemonic
    bool enabled = false;
    std::string why; ///< why it isn't enabled, as a sentence; "" when it is
};

/// The entries "Undo" and "Redo". Steps of which nothing is left are dropped first.
[[nodiscard]] Step_Entry undoEntry(const App_Context& app);
[[nodiscard]] Step_Entry redoEntry(const App_Context& app);

/// "&Undo": takes the last step back, and shows its cell if it has one only. The message bar tells of cells
/// that keep what they got since.
void MNU_Undo_Click(const App_Context& app);
void MNU_Redo_Click(const App_Context& app);

/// Puts values that were judged into their cells, as one step of that name.
void takeValues(const App_Context& app, const std::vector<edit::Taken_Value>& values,
                const std::string& name);

/// An upload has finished: what it changed is a step.
void noteUpload(const App_Context& app);

} // namespace zorvane::app
