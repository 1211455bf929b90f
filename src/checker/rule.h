// SPDX-License-Identifier: MIT
#pragma once

#include "checker/checked_template.h"
#include "checker/finding.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::checker {

class Report;

/// One check: what it looks for, and how.
struct Rule {
    std::string_view code; ///< short words, never changed
    Severity severity = Severity::Warning;
    std::string_view meaning; ///< one line for the list of codes
    std::string_view why;     ///< what becomes of such a line: whole sentences
    void (*check)(const Checked_Template&, const Report&);
};

/// Where a rule hands in what it finds.
class Report {
  public:
    Report(const Rule& rule, std::vector<Finding>& findings) : rule_(rule), findings_(findings) {}

    /// `what` is without a full stop, `instead` whole sentences.
    void operator()(const Source_Line& line, std::string what, std::string instead) const {
        findings_.push_back({line.number, rule_.severity, rule_.code, std::string(line.text), std::move(what),
                             std::string(rule_.why), std::move(instead)});
    }

  private:
    const Rule& rule_;
    std::vector<Finding>& findings_;
};

// The rules by what they look at; each set has a file of its own.
[[nodiscard]] std::span<const Rule> lineRules();
[[nodiscard]] std::span<const Rule> keyRules();
[[nodiscard]] std::span<const Rule> layoutRules();
[[nodiscard]] std::span<const Rule> wordRules();
[[nodiscard]] std::span<const Rule> addressRules();
[[nodiscard]] std::span<const Rule> messageRules();
[[nodiscard]] std::span<const Rule> valueRules();
[[nodiscard]] std::span<const Rule> scanRules();
[[nodiscard]] std::span<const Rule> downloadRules();
[[nodiscard]] std::span<const Rule> identityRules();

} // namespace zorvane::checker
