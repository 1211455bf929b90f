#pragma once

#include "checker/finding.h"
#include "checker/rule.h"

#include <string_view>
#include <vector>

namespace zorvane {

/// All rules, in the order in which they are listed.
[[nodiscard]] std::vector<Rule> allRules();

/// What a template's author should know of a template: the findings by their lines. `fileName` is the file's
/// name without its folder; some rules go by it. A line on which the reader would stop always has an error.
[[nodiscard]] std::vector<Finding> checkTemplate(std::string_view fileName, std::string_view text);

} // namespace zorvane
