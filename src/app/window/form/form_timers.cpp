// SPDX-License-Identifier: MIT
#include "app/window/form/form_timers.h"

#include <algorithm>
#include <limits>

namespace zorvane::app {

namespace {

struct Timer_Design {
    Timer_Name name;
    int milliseconds;
};

/// TMR_Forza_analogas gets its interval from the template.
constexpr std::array designs = {
    Timer_Design{Timer_Name::TMR_Abre_ZTP, 100},         Timer_Design{Timer_Name::TMR_Inicial_ZTP, 200},
    Timer_Design{Timer_Name::TMR_Verifica_monitor, 500}, Timer_Design{Timer_Name::TMR_Actualiza_valores, 10},
    Timer_Design{Timer_Name::TMR_Actualiza_online, 400}, Timer_Design{Timer_Name::TMR_TxRx, 90},
    Timer_Design{Timer_Name::TMR_Forza_analogas, 0},     Timer_Design{Timer_Name::TIM_Tamaño_normal, 100},
};

} // namespace

Form_Timers::Form_Timers() {
    for (const Timer_Design& design : designs)
        at(design.name).setInterval(design.milliseconds);
    at(Timer_Name::TMR_Actualiza_valores).setTimerType(Qt::PreciseTimer);
    for (const Timer_Design& design : designs)
        QObject::connect(&at(design.name), &QTimer::timeout, &at(design.name),
                         [this, name = design.name] { fire(name); });
}

void Form_Timers::onTick(Timer_Name timer, std::function<void()> handler) {
    handlers_.at(static_cast<std::size_t>(timer)) = std::move(handler);
}

void Form_Timers::fire(Timer_Name timer) const {
    if (const auto& handler = handlers_.at(static_cast<std::size_t>(timer))) handler();
}

void Form_Timers::setEnabled(Timer_Name timer, bool enabled) {
    QTimer& one = at(timer);
    if (!enabled)
        one.stop();
    else if (!one.isActive() && one.interval() > 0)
        one.start();
}

void Form_Timers::setInterval(Timer_Name timer, std::int64_t milliseconds) {
    const std::int64_t most = std::numeric_limits<std::int32_t>::max();
    at(timer).setInterval(static_cast<int>(std::clamp<std::int64_t>(milliseconds, 0, most)));
    if (milliseconds <= 0) at(timer).stop();
}

} // namespace zorvane::app
