// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"
#include "app/window/form/window_form.h"

#include <QElapsedTimer>
#include <QTimer>

namespace zorvane::app {

/// The way out when the system ends the program: nobody is asked anything, and nobody is waited for long.
class System_End {
  public:
    /// All of it outlives this.
    System_End(const App_Context& app, Window_Form& mainForm, Event_Edge& edge);

    /// Keeps the changes of the document, gives up a transfer, and ends the program as soon as the transfer
    /// has taken notice of that; after `patienceMs` or at a second call without it.
    void begin();

    /// How long a transfer may take to end by itself, in ms.
    static constexpr int patienceMs = 5'000;

  private:
    void look();

    const App_Context& app_;
    Window_Form& mainForm_;
    Event_Edge& edge_;
    QTimer timer_;
    QElapsedTimer since_;
};

} // namespace zorvane::app
