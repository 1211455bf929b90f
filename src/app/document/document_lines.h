// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <optional>
#include <string>

namespace zorvane::app {

// What the message bar says of documents: of saves that failed, of copies, and of commands that were left
// half-way. Its buttons choose entries of the menu.

/// A save that failed.
struct Failed_Save {
    std::string path;
    std::string reason;                ///< the failure's description
    std::optional<std::string> before; ///< the file's bytes before, if there was one
    bool fileKept = false;             ///< they are among the copies
    bool copyKept = false;             ///< and so is all of the document
    bool renamed = false;              ///< the document in the window has the new file's name now
};

void tellSaveFailed(const App_Context& app, const Failed_Save& save);
/// A save went well: an older failure is of no interest any more.
void withdrawSaveFailed(const App_Context& app);

/// Open was cancelled after it had emptied the model of that document.
void tellEmptied(const App_Context& app, const std::string& name);

/// Save As was refused when the document already had the new name.
void tellRenamed(const App_Context& app, const std::string& path);

/// That document is gone with changes that no file has, and nobody said that they may go.
void tellLeftUnsaved(const App_Context& app, const std::string& name, bool copyKept);

/// No copy of the document's unsaved changes can be kept.
void tellNoCopy(const App_Context& app);
/// One could, or there is nothing more to keep.
void withdrawNoCopy(const App_Context& app);

/// How many copies of unsaved changes there are; nothing when there is none.
void tellCopies(const App_Context& app);
/// The line above goes unless there are still such copies.
void refreshCopies(const App_Context& app);

} // namespace zorvane::app
