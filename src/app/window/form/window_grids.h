// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/main_form.h"
#include "ui/grid/flex_grid.h"

#include <functional>

namespace zorvane::app {

/// What the transfers ask of the window's two grids.
class Window_Grids final : public Grid_View {
  public:
    Window_Grids(ui::Flex_Grid& configuration, ui::Flex_Grid& settings)
        : configuration_(configuration), settings_(settings) {}

    /// Fills the lower grid with a field. Set before a transfer runs.
    std::function<void(std::int32_t row)> refill;

    [[nodiscard]] std::int32_t configurationRows() const override { return configuration_.Rows(); }
    [[nodiscard]] std::int32_t configurationRow() const override { return configuration_.Row(); }
    [[nodiscard]] std::int32_t settingsRow() const override { return settings_.Row(); }
    [[nodiscard]] std::int32_t settingsCol() const override { return settings_.Col(); }
    void refillSettings(std::int32_t row) override {
        if (refill) refill(row);
    }
    void setSettingsText(std::int32_t row, std::int32_t col, const std::string& text) override {
        settings_.setTextMatrix(row, col, text);
    }
    void setSettingsTabStop(bool on) override { settings_.setTabStop(on); }
    /// The grid shows what was written when events are served next, all of it at once.
    void setSettingsRedraw(bool /*on*/) override {}

  private:
    ui::Flex_Grid& configuration_;
    ui::Flex_Grid& settings_;
};

} // namespace zorvane::app
