// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/text_metrics.h"

namespace zorvane::doubles {

/// Ten twips a character and point; a line is 24 twips high for each point.
class Even_Metrics : public Text_Metrics {
  public:
    [[nodiscard]] double textWidth(const std::string& text, const Report_Font& font) const override {
        return 10 * font.Size * static_cast<double>(text.size());
    }
    [[nodiscard]] double lineHeight(const Report_Font& font) const override { return 24 * font.Size; }
};

} // namespace zorvane::doubles
