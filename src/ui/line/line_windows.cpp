// SPDX-License-Identifier: MIT
#include "ui/line/line_windows.h"

#include "comm/modbus_control/qt/qt_port_watch.h"

#include <QTime>

#include <utility>

namespace zorvane::ui {

namespace {

/// The time of the link's clock at the last local midnight.
Micros midnightOf(const Link_Clock& clock) {
    return clock.now() - QTime::currentTime().msecsSinceStartOfDay() * microsPerMs;
}

} // namespace

Line_Windows::Line_Windows(QWidget* owner, Simulator& simulator, Line_Windows_Hooks hooks)
    : owner_(owner), simulator_(simulator), hooks_(std::move(hooks)),
      testPort_(testAnyPort_.port(), simulator) {}

Line_Windows::~Line_Windows() {
    link_ = nullptr; // gone by now
    delete monitor_.data();
    delete dialog_.data();
}

Port_Dialog_Services Line_Windows::dialogParts() {
    return {finder_,
            testPort_,
            clock_,
            {link_->templatePauseMs(), link_->templateTimeOutMs()},
            hooks_.testRegister ? hooks_.testRegister() : 0,
            link_->addressBase(),
            [this] { link_->lendPort(); },
            [this] {
                if (link_ != nullptr) link_->takePortBack();
            }};
}

/// The simulated controller stays while its port is the chosen one: what was written to it is not lost when
/// the link closes the port between two transfers.
void Line_Windows::use(Modbus_Link& link, const Port_Settings& settings) const {
    link.setPortSettings(settings);
    if (hooks_.keep) hooks_.keep(settings);
}

void Line_Windows::showPortSettings(Modbus_Link& link, bool modal) {
    link_ = &link;
    if (dialog_) {
        dialog_->raise();
        return dialog_->activateWindow();
    }
    dialog_ = new Port_Dialog(dialogParts(), link_->portSettings(), owner_);
    dialog_->setAttribute(Qt::WA_DeleteOnClose);
    auto watch = std::make_shared<Qt_Port_Watch>([dialog = dialog_] {
        if (dialog) dialog->refreshPorts();
    });
    QObject::connect(dialog_, &QDialog::finished, dialog_, [this, watch](int result) {
        if (result == QDialog::Accepted) use(*link_, dialog_->settings());
        if (link_->portSettings().port != simulatedPortName) simulator_.stop();
    });
    if (modal)
        dialog_->exec();
    else
        dialog_->show();
}

Monitor_Line Line_Windows::monitorLine() {
    return {[this] { return link_->portSettings(); }, [this] { return link_->templateTimeOutMs() > 0; },
            [this](std::int32_t timeOutMs) {
                link_->setTimeOutMs(timeOutMs);
                if (hooks_.keep) hooks_.keep(link_->portSettings());
            }};
}

bool Line_Windows::monitorVisible() const {
    const Monitor_Window* const window = monitor_;
    return window != nullptr && window->isVisible();
}

void Line_Windows::showMonitor(Modbus_Link& link, const Window_Place& place) {
    link_ = &link;
    if (!monitor_) {
        monitor_ = new Monitor_Window(clock_, midnightOf(clock_), hooks_.ask, owner_, monitorLine());
        lastTraffic_.setNext(&monitor_->feed());
    }
    monitor_->setPlace(place);
    monitor_->show();
}

void Line_Windows::activateMonitor() {
    if (!monitor_) return;
    if (monitor_->isMinimized()) monitor_->showNormal();
    monitor_->show();
    monitor_->raise();
    monitor_->activateWindow();
}

Window_Place Line_Windows::monitorPlace() const {
    const Monitor_Window* const window = monitor_;
    return window != nullptr ? window->place() : monitorPlace_;
}

void Line_Windows::unloadMonitor() {
    if (!monitor_) return;
    monitorPlace_ = monitor_->place();
    lastTraffic_.setNext(nullptr);
    delete monitor_.data();
}

void Line_Windows::hideMonitor() {
    shownBeforeHiding_ = monitorVisible();
    if (monitor_) monitor_->hide();
}

void Line_Windows::restoreMonitor() {
    if (monitor_ && std::exchange(shownBeforeHiding_, false)) monitor_->show();
}

void Line_Windows::minimizeMonitor() {
    if (monitorVisible()) monitor_->showMinimized();
}

} // namespace zorvane::ui
