// SPDX-License-Identifier: MIT
#include "bench/link/bench_form.h"

#include <utility>

namespace zorvane::bench {

Bench_Form::Bench_Form(std::int32_t fields, std::function<void()> tick) : Held_Form(fields, {}) {
    uploadTimer_.setInterval(10);
    uploadTimer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&uploadTimer_, &QTimer::timeout, &uploadTimer_, std::move(tick));
}

void Bench_Form::setTimerEnabled(Timer_Name timer, bool enabled) {
    if (timer != Timer_Name::TMR_Actualiza_valores) return;
    if (enabled)
        uploadTimer_.start();
    else
        uploadTimer_.stop();
}

} // namespace zorvane::bench
