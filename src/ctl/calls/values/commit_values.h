// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/opened_document.h"
#include "ctl/document/subcommand.h"
#include "edit/value_import.h"

#include <string>

namespace zorvane::ctl {

/// A file's values that are to go into a document.
struct Values_To_Commit {
    std::string path; ///< of their file, the system's text
    edit::Value_File file;
    edit::Reading_Style style;
    std::string out;         ///< where to save the document, UTF-8; "" only tries
    bool allThatFit = false; ///< save also where some are left out
};

/// Judges all values, and only then puts them into the document and saves it. What is left out is told, with
/// its line; the result is printed. Gives the exit code.
[[nodiscard]] int commitValues(const Call_Context& context, Opened_Document& opened,
                               const Values_To_Commit& values);

/// The same result for a file of which nothing could be read.
[[nodiscard]] int commitNothing(const Call_Context& context);

} // namespace zorvane::ctl
