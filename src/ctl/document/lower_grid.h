// SPDX-License-Identifier: MIT
#pragma once

#include "comm/transfer/requests/download_request.h"
#include "compare/register_file.h"
#include "ctl/document/opened_document.h"
#include "grids/terminal_grids.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::ctl {

/// A link that is up, as a fill of the lower grid sees it.
struct Online_Scene {
    compare::Register_Values registers;
    std::string request; ///< the request word of the blocks now scanned
    bool lost = false;
};

/// The lower grid of a field. After a failure the table holds what was filled in so far.
struct Shown_Grid {
    Settings_Table table;
    std::optional<Failure_Note> failure;
};

/// Fills the lower grid with a field: offline, or online on a register image.
[[nodiscard]] Shown_Grid showField(Declara_Zorvane& document, std::int32_t field,
                                   const std::optional<Online_Scene>& scene);

/// What came of a user's entry while offline, and what he was told.
struct Entry_Note {
    Entry_Outcome outcome;
    std::optional<Failure_Note> failure;
    std::vector<Message_Note> messages;
    bool Dirty = false;
    bool sortedOut = false; ///< the text is no number, or no time, and 0 took its place

    /// The entry reached its commit, and that came to its end.
    [[nodiscard]] bool committed() const { return !failure && !outcome.refused; }
    /// The cell holds what was typed: it was neither refused nor replaced by a limit or by 0.
    [[nodiscard]] bool taken() const { return committed() && messages.empty() && !sortedOut; }
};

/// Commits a user's entry through the handlers of the lower grid.
[[nodiscard]] Entry_Note commitEntry(Declara_Zorvane& document, const Cell_Place& place,
                                     const std::string& text);

} // namespace zorvane::ctl
