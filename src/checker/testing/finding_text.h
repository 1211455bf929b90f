// SPDX-License-Identifier: MIT
#pragma once

#include "checker/finding.h"

#include <string>
#include <vector>

namespace zorvane::checker::doubles {

/// A line a finding, as "12: warning: what is wrong [code]".
[[nodiscard]] inline std::string findingsText(const std::vector<Finding>& findings) {
    std::string text;
    for (const Finding& finding : findings)
        text += std::to_string(finding.line) +
                (finding.severity == Severity::Error ? ": error: " : ": warning: ") + finding.what + " [" +
                std::string(finding.code) + "]\n";
    return text;
}

} // namespace zorvane::checker::doubles
