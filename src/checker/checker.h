// SPDX-License-Identifier: MIT
#pragma once

#include "checker/checked_template.h"
#include "checker/finding.h"
#include "checker/rule.h"

#include <string_view>
#include <vector>

namespace zorvane::checker {

/// All rules, in the order in which they are listed.
[[nodiscard]] std::vector<Rule> allRules();

/// What a template's author should know of a template: the findings by their lines. `fileName` is the file's
/// name without its folder; some rules go by it. A line on which the reader would stop always has an error.
[[nodiscard]] std::vector<Finding> checkTemplate(std::string_view fileName, std::string_view text);

/// The finding for a line on which the reader stops, where nothing else is said of that.
[[nodiscard]] Finding readingStop(const Source_Line& line, const Line_Failure& failure);

/// The finding for a template that can't be read at all; its line is 0.
[[nodiscard]] Finding unreadable(std::string_view reason);

} // namespace zorvane::checker
