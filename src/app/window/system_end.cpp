// SPDX-License-Identifier: MIT
#include "app/window/system_end.h"

#include "app/form_life.h"

namespace zorvane::app {

namespace {

constexpr int lookEveryMs = 20;

} // namespace

System_End::System_End(const App_Context& app, Window_Form& mainForm, Event_Edge& edge)
    : app_(app), mainForm_(mainForm), edge_(edge) {
    timer_.setInterval(lookEveryMs);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { edge_.run([this] { look(); }); });
}

void System_End::begin() {
    edge_.run([this] {
        if (timer_.isActive()) return Form_Unload(app_);
        prepareSystemEnd(app_);
        mainForm_.endQuestions();
        since_.start();
        timer_.start();
        look();
    });
}

void System_End::look() {
    if (transferRuns(app_.form()) && since_.elapsed() < patienceMs) return;
    timer_.stop();
    Form_Unload(app_);
}

} // namespace zorvane::app
