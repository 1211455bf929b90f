// SPDX-License-Identifier: MIT
#include "app/desktop/busy_run.h"

#include "ui/forms/mensaje.h"

#include <QApplication>
#include <QKeyEvent>

namespace zorvane::app {

namespace {

constexpr qint64 servedEveryMs = 40;

bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

Busy_Run::Busy_Run(Event_Edge& edge, std::function<std::unique_ptr<ui::Mensaje>()> makeForm)
    : edge_(edge), makeForm_(std::move(makeForm)) {}

Busy_Run::~Busy_Run() = default;

void Busy_Run::show() {
    if (depth_++ > 0) return;
    cancelled_ = false;
    form_ = makeForm_();
    form_->onCancel([this] { cancelled_ = true; });
    form_->setTimerEnabled(true);
    form_->show();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    serve();
}

void Busy_Run::end() {
    if (depth_ == 0 || --depth_ > 0) return;
    form_->setTimerEnabled(false);
    form_.reset();
    QApplication::restoreOverrideCursor();
}

void Busy_Run::serve() {
    qApp->installEventFilter(this);
    QApplication::processEvents();
    qApp->removeEventFilter(this);
    sinceServed_.restart();
}

bool Busy_Run::keepsRunning() {
    if (depth_ == 0) return true;
    if (cancelled_) return false;
    if (sinceServed_.elapsed() < servedEveryMs) return true;
    serve();
    edge_.throwIfEnded();
    return !cancelled_;
}

/// Windows of the desktop's side pass their input on to a widget, and shortcuts go to their owners: those are
/// asked here.
bool Busy_Run::mayTakeInput(const QObject* watched) const {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (widget == nullptr) return watched->isWindowType();
    const QWidget* window = widget->window();
    return window == form_.get() || window == QApplication::activeModalWidget() ||
           window == QApplication::activePopupWidget();
}

bool Busy_Run::eventFilter(QObject* watched, QEvent* event) {
    if (!isInput(event->type()) || mayTakeInput(watched)) return false;
    const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (key && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) cancelled_ = true;
    if (event->type() == QEvent::Close) event->ignore();
    return true;
}

} // namespace zorvane::app
