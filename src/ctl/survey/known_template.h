// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/opened_document.h"
#include "ctl/document/subcommand.h"
#include "survey/desk/known_template.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::ctl {

/// Templates with the documents that hold them.
struct Known_Templates {
    Known_Templates() = default;
    Known_Templates(Known_Templates&&) = default;
    Known_Templates(const Known_Templates&) = delete;
    Known_Templates& operator=(const Known_Templates&) = delete;

    std::deque<Opened_Document> documents;
    std::vector<survey::Known_Template> known;
};

/// Reads templates by their names on the command line. What goes wrong is told to people; nothing when one of
/// them can't be read to its end.
[[nodiscard]] std::optional<Known_Templates> readKnownTemplates(const Call_Context& context,
                                                                const std::vector<std::string>& names);

} // namespace zorvane::ctl
