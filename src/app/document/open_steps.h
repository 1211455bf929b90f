// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <optional>
#include <string>
#include <vector>

namespace zorvane::app {

/// What is to be opened, and how.
struct File_To_Open {
    std::string path; ///< its last extension names the template
    bool readOnly = false;
    std::vector<std::string> items; ///< the file types that were on offer, for remembering the chosen one
    std::optional<std::string> recoveredName; ///< of a recovery copy: the name that the document itself had
    /// Of a new document: its name until it is saved. `path` is the model's factory file, which need not be
    /// there.
    std::optional<std::string> newName{};
};

/// The Open command from the chosen file on. False when the user kept the document at hand; its model is
/// emptied by then.
bool openChosen(const App_Context& app, const File_To_Open& opening);

} // namespace zorvane::app
