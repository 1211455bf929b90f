// SPDX-License-Identifier: MIT
#include "app/window/form/window_progress.h"

#include "ui/base/text.h"

#include <QProgressBar>

#include <algorithm>

namespace zorvane::app {

ui::Porcentaje& Window_Progress::form() {
    if (form_ == nullptr) form_ = new ui::Porcentaje(hooks, parent_);
    return *form_;
}

void Window_Progress::setLabel(const std::string& text) { form().setLabel(ui::fromCore(text)); }

/// Qt's bar takes a range of nothing for "busy"; here it is a bar that stays empty.
void Window_Progress::setRange(std::int32_t maximum) {
    maximum_ = maximum;
    form().Progress_Bar().setRange(0, std::max(1, maximum));
    setValue(0);
}

void Window_Progress::setValue(std::int32_t value) {
    value_ = value;
    form().Progress_Bar().setValue(value);
}

/// Its Ok may still stand there from a transfer that was lost.
void Window_Progress::show() {
    form().load();
    form().show();
    if (shown) shown();
}

void Window_Progress::unload() {
    if (form_ != nullptr && form_->isVisible()) form_->unload();
}

void Window_Progress::Deshabilita_Cancelar() {
    value_ = 0;
    form().Deshabilita_Cancelar();
}

QWidget* Window_Progress::shownForm() const {
    return form_ != nullptr && form_->isVisible() ? form_ : nullptr;
}

} // namespace zorvane::app
