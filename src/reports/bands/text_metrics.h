// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/text_style.h"

#include <string>

namespace zorvane {

/// How much room texts take on paper. All measures are in twips, 1/1440 inch.
class Text_Metrics {
  public:
    virtual ~Text_Metrics() = default;
    [[nodiscard]] virtual double textWidth(const std::string& text, const Report_Font& font) const = 0;
    /// From the top of a line to the top of the next.
    [[nodiscard]] virtual double lineHeight(const Report_Font& font) const = 0;
};

/// A text's width in that font, not bold.
[[nodiscard]] inline double Text_Width_Twips(const Text_Metrics& metrics, const std::string& text,
                                             double size, const std::string& fontName) {
    return metrics.textWidth(text, {fontName, size, false});
}

} // namespace zorvane
