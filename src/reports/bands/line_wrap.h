// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/text_metrics.h"

#include <string>
#include <vector>

namespace zorvane {

/// The lines of a text (ended by CR LF or LF), those too wide for `width` twips broken after a blank, or
/// within a word that is too wide by itself. The end of the last line makes no further line.
[[nodiscard]] std::vector<std::string> wrappedLines(const Text_Metrics& metrics, const std::string& text,
                                                    const Report_Font& font, double width);

} // namespace zorvane
