// SPDX-License-Identifier: MIT
#pragma once

#include "app/desktop/event_edge.h"
#include "app/form/app_context.h"
#include "app/window/form/window_form.h"

#include <functional>

namespace zorvane::app {

/// What the parts of the window's menu work on. Nothing in it is owned.
struct Menu_Context {
    const App_Context& app;
    Window_Form& mainForm;
    Event_Edge& edge;

    [[nodiscard]] ui::Main_Window& window() const { return mainForm.window(); }
    /// What an entry of the menu does.
    void onChosen(const QString& entry, const std::function<void()>& handler) const;
    void onChosen(QAction& entry, const std::function<void()>& handler) const;
};

} // namespace zorvane::app
