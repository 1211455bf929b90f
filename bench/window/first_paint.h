// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QMetaObject>
#include <QObject>
#include <QWidget>

#include <functional>

namespace zorvane::bench {

/// Tells once when a widget was painted the next time.
class First_Paint final : public QObject {
  public:
    First_Paint(QWidget& widget, std::function<void()> painted)
        : QObject(&widget), painted_(std::move(painted)) {
        widget.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Paint || !painted_) return false;
        watched->removeEventFilter(this);
        QMetaObject::invokeMethod(this, std::exchange(painted_, nullptr), Qt::QueuedConnection);
        return false;
    }

  private:
    std::function<void()> painted_;
};

} // namespace zorvane::bench
