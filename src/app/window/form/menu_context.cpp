// SPDX-License-Identifier: MIT
#include "app/window/form/menu_context.h"

namespace zorvane::app {

void Menu_Context::onChosen(const QString& entry, const std::function<void()>& handler) const {
    window().menu().onChosen(entry, [&edge = edge, handler] { edge.run(handler); });
}

void Menu_Context::onChosen(QAction& entry, const std::function<void()>& handler) const {
    window().menu().onChosen(entry, [&edge = edge, handler] { edge.run(handler); });
}

} // namespace zorvane::app
