// SPDX-License-Identifier: MIT
#pragma once

#include "checker/finding.h"
#include "template/model/declara_zorvane.h"

#include <span>
#include <string_view>
#include <vector>

namespace zorvane::edit {

/// A kind of finding in a document.
struct Document_Rule {
    std::string_view code; ///< short words, never changed
    checker::Severity severity = checker::Severity::Warning;
    std::string_view meaning; ///< one line for the list of codes
    std::string_view why;     ///< what becomes of it: whole sentences
};

/// All kinds, in the order in which they are listed. What is found in lines as such has the codes of the
/// templates' checker.
[[nodiscard]] std::span<const Document_Rule> documentRules();

/// What whoever keeps a document should know of its file: lines that are read otherwise than they were meant,
/// and values that their cells don't take. By their lines. Goes on after a line on which the reader stops.
/// `document` is what the template left, and takes the file's values.
[[nodiscard]] std::vector<checker::Finding> checkDocument(Declara_Zorvane& document, std::string_view text);

} // namespace zorvane::edit
