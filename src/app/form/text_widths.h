// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zorvane::app {

/// How wide texts are in the grids' font.
class Text_Widths {
  public:
    virtual ~Text_Widths() = default;
    /// In twips, at that size in points.
    [[nodiscard]] virtual double textWidth(const std::string& text, double points) const = 0;
};

} // namespace zorvane::app
