// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/commission/writing_line.h"

#include "comm/modbus_control/line/port_texts.h"
#include "ctl/document/notices.h"

#include <QSocketNotifier>
#include <QTimer>

#include <iostream>

namespace zorvane::ctl {

namespace {

constexpr int watchPeriodMs = 1000;

} // namespace

Writing_Line::Writing_Line(const Port_Settings& settings)
    : stop_([this](bool again) { again_ = again_ || again; }),
      exchanges_(settings, [this] { return again_ || (!sending_ && stop_.asked()); }) {}

std::string Writing_Line::open(const Call_Context& context) {
    const Port_Settings& settings = exchanges().settings();
    commission::Native_Port_Locks locks(context.stateFolder + "/locks");
    hold_ = locks.take(settings.port, settings.slave);
    if (!hold_.held) return hold_.why;
    const Port_Opening opening = exchanges().open();
    if (opening.opened) return {};
    if (stop_.asked()) return stoppedAtOpening;
    return printable(cannotOpenText(settings.port) + " " + opening.reason);
}

bool Writing_Line::confirm(const Call_Context& context, const std::string& question, std::int32_t unit,
                           std::int32_t watched) {
    context.err << question << " [y/N] " << std::flush;
    bool answered = false;
    bool due = false;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &input, [&] { answered = true; });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { due = true; });
    timer.start(watchPeriodMs);
    while (!answered && !stopAsked()) {
        serveEventsUntil([&] { return answered || due || stopAsked(); });
        if (std::exchange(due, false) && !answered) (void)exchanges().read(unit, watched, 1);
    }
    std::string line;
    if (!answered || !std::getline(std::cin, line)) return false;
    return line == "y" || line == "Y" || line == "yes";
}

} // namespace zorvane::ctl
