// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/terminal_form.h"

#include "comm/main_form/presenter.h"
#include "ctl/document/notices.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace zorvane::ctl {

namespace {

constexpr int uploadTickMs = 10;
constexpr int onlineTickMs = 400;

} // namespace

Terminal_Form::Terminal_Form(std::int32_t fields, const Grid_Selection& selection, Terminal_Asker& asker)
    : Held_Form(fields, selection), asker_(asker), printer_(asker.printer()) {
    Porcentaje().changed = [this] { showProgress(); };
    addTimer(uploadTimer_, Timer_Name::TMR_Actualiza_valores, uploadTickMs);
    addTimer(onlineTimer_, Timer_Name::TMR_Actualiza_online, onlineTickMs);
}

void Terminal_Form::addTimer(QTimer& timer, Timer_Name name, int milliseconds) {
    timer.setSingleShot(true);
    timer.setInterval(milliseconds);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &timer, [this, name] {
        if (onTimer) onTimer(name);
    });
}

int Terminal_Form::Msgb_Show(const std::string& prompt, int style, const std::string& title) {
    return asker_.Msgb_Show(prompt, style, title);
}

void Terminal_Form::note(const Transfer_Event& event) {
    const auto* const value = std::get_if<event::Value_Written>(&event);
    const auto* const text = std::get_if<event::Text_Written>(&event);
    if (value != nullptr && value->progress == Write_Progress::Failed)
        printer_.line(printable(statusLine(*value)));
    if (text != nullptr && text->failed) printer_.line(printable(statusLine(*text)));
}

void Terminal_Form::setTimerEnabled(Timer_Name timer, bool enabled) {
    QTimer* ticking = nullptr;
    if (timer == Timer_Name::TMR_Actualiza_valores) ticking = &uploadTimer_;
    if (timer == Timer_Name::TMR_Actualiza_online) ticking = &onlineTimer_;
    if (ticking == nullptr) return;
    if (enabled)
        ticking->start();
    else
        ticking->stop();
}

void Terminal_Form::wait_until(const std::function<bool()>& condition) {
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void Terminal_Form::wait_ms(std::int32_t milliseconds) {
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    timer.start(milliseconds);
    wait_until([&] { return !timer.isActive() || (endsWaits && endsWaits()); });
}

void Terminal_Form::showProgress() {
    const Held_Progress& progress = Porcentaje();
    if (progress.state() != Progress_State::Shown) return printer_.end();
    if (progress.label() != shownLabel_) {
        shownLabel_ = progress.label();
        printer_.label(printable(shownLabel_));
    }
    if (portFailed && portFailed()) return printer_.end(); // what moves on has no line to move on
    printer_.progress(progress.value(), progress.maximum());
}

} // namespace zorvane::ctl
