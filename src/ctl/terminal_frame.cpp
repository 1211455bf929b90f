#include "ctl/terminal_frame.h"

#include "ctl/notices.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <algorithm>

namespace zorvane {

namespace {

constexpr int uploadTickMs = 10;

/// A message of several lines as one.
std::string oneLine(std::string text) {
    std::string line;
    for (const char c : text)
        if (c != '\r' && c != '\n')
            line += c;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    return line;
}

} // namespace

Terminal_Frame::Terminal_Frame(std::int32_t fields, const Grid_Selection& selection, std::ostream& err,
                               bool terminal)
    : Held_Frame(fields, selection), printer_(err, terminal) {
    Porcentaje().changed = [this] { showProgress(); };
    uploadTimer_.setSingleShot(true);
    uploadTimer_.setInterval(uploadTickMs);
    uploadTimer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&uploadTimer_, &QTimer::timeout, &uploadTimer_, [this] {
        if (onTimer) onTimer(Timer_Name::TMR_Actualiza_valores);
    });
}

/// Only what is wrong is worth a line; a question is about what the user of the terminal has just asked for.
int Terminal_Frame::Msgb_Show(const std::string& prompt, int style, const std::string& title) {
    if ((style & Msgb_Critical) != 0) printer_.line("zorvanectl: " + printablePath(oneLine(prompt)));
    return Held_Frame::Msgb_Show(prompt, style, title);
}

void Terminal_Frame::setPanel(Panel panel, const std::string& text) {
    Held_Frame::setPanel(panel, text);
    if (panel == Panel::Message && text.ends_with(" ...Failed")) printer_.line(printable(text));
}

void Terminal_Frame::setTimerEnabled(Timer_Name timer, bool enabled) {
    if (timer != Timer_Name::TMR_Actualiza_valores) return;
    if (enabled)
        uploadTimer_.start();
    else
        uploadTimer_.stop();
}

void Terminal_Frame::wait_until(const std::function<bool()>& condition) {
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void Terminal_Frame::wait_ms(std::int32_t milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

void Terminal_Frame::showProgress() {
    const Held_Progress& progress = Porcentaje();
    if (progress.state() != Progress_State::Shown) return printer_.end();
    if (progress.label() != shownLabel_) {
        shownLabel_ = progress.label();
        printer_.label(printable(shownLabel_));
    }
    printer_.progress(progress.value(), progress.maximum());
}

} // namespace zorvane
