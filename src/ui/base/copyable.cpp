// SPDX-License-Identifier: MIT
#include "ui/base/copyable.h"

#include "ui/base/text.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QWidget>

#include <utility>

namespace zorvane::ui {

namespace {

class Copying final : public QObject {
  public:
    Copying(QWidget& widget, std::function<QString()> text)
        : QObject(&widget), widget_(widget), text_(std::move(text)) {
        widget.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
            copy();
            return true;
        }
        if (event->type() == QEvent::ContextMenu) {
            offer(static_cast<QContextMenuEvent*>(event)->globalPos());
            return true;
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void copy() const {
        if (const QString text = text_(); !text.isEmpty()) QGuiApplication::clipboard()->setText(text);
    }
    void offer(const QPoint& place) {
        auto* const menu = new QMenu(&widget_);
        giveName(*menu, QStringLiteral("COPY_Menu"));
        menu->setAttribute(Qt::WA_DeleteOnClose);
        QAction* const entry = menu->addAction(QStringLiteral("&Copy"));
        entry->setObjectName(QStringLiteral("COPY_Text"));
        entry->setEnabled(!text_().isEmpty());
        connect(entry, &QAction::triggered, this, [this] { copy(); });
        menu->popup(place);
    }

    QWidget& widget_;
    std::function<QString()> text_;
};

} // namespace

void makeCopyable(QWidget& widget, std::function<QString()> text) { new Copying(widget, std::move(text)); }

} // namespace zorvane::ui
