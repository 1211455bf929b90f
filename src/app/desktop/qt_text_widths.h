// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/text_widths.h"

#include <QFont>

#include <functional>

namespace zorvane::app {

/// Widths as the grids draw their texts.
class Qt_Text_Widths final : public Text_Widths {
  public:
    /// `font` gives the grids' font of the moment, whose size is left aside; `twipsPerPixel` belongs to their
    /// screen.
    Qt_Text_Widths(std::function<QFont()> font, std::function<double()> twipsPerPixel)
        : font_(std::move(font)), twipsPerPixel_(std::move(twipsPerPixel)) {}

    [[nodiscard]] double textWidth(const std::string& text, double points) const override;

  private:
    std::function<QFont()> font_;
    std::function<double()> twipsPerPixel_;
};

} // namespace zorvane::app
