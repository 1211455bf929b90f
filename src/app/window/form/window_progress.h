// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/main_form.h"
#include "ui/forms/porcentaje.h"

#include <cstdint>

namespace zorvane::app {

/// The progress form of the window. It is one form for all transfers: a question of its Cancel button may
/// still stand when a transfer ends.
class Window_Progress final : public Progress_Form {
  public:
    explicit Window_Progress(QWidget* parent) : parent_(parent) {}

    /// What its Cancel button does. Set before the form is first used.
    ui::Porcentaje_Hooks hooks;
    std::function<void()> shown; ///< it came on the screen; may be empty

    void setLabel(const std::string& text) override;
    void setRange(std::int32_t maximum) override;
    void setValue(std::int32_t value) override;
    [[nodiscard]] std::int32_t value() const override { return value_; }
    [[nodiscard]] std::int32_t maximum() const override { return maximum_; }
    void show() override;
    void unload() override;
    void Deshabilita_Cancelar() override;

    /// The form while it is on the screen.
    [[nodiscard]] QWidget* shownForm() const;

  private:
    [[nodiscard]] ui::Porcentaje& form();

    QWidget* parent_;
    ui::Porcentaje* form_ = nullptr; ///< belongs to the parent
    std::int32_t value_ = 0;
    std::int32_t maximum_ = 0;
};

} // namespace zorvane::app
