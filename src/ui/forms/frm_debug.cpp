// SPDX-License-Identifier: MIT
#include "ui/forms/frm_debug.h"

#include "ui/base/roles.h"
#include "ui/base/text.h"
#include "ui/base/twips_scale.h"

#include <QAction>
#include <QCloseEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextCursor>

namespace zorvane::ui {

namespace {

// Twips.
constexpr double startWidth = 6000;
constexpr double startHeight = 4500;
constexpr double textLeft = 100;
constexpr double textTop = 100;
constexpr double besideText = 200;
constexpr double belowText = 500;

} // namespace

Frm_Debug::Frm_Debug(QWidget* parent) : QWidget(parent, Qt::Window) {
    giveRole(*this, QAccessible::Window);
    giveName(*this, QStringLiteral("FrmDebug"));
    setWindowTitle(QStringLiteral("Test Debug Form..."));
    text_ = new QPlainTextEdit(this);
    giveName(*text_, QStringLiteral("EDT_Prueba"));
    text_->setAccessibleName(QStringLiteral("Text"));
    const Twips_Scale scale = scaleOf(*this);
    resize(scale.size(startWidth, startHeight));
    placeAt(*text_, {textLeft, textTop, startWidth - textLeft, startHeight - textTop});
    auto* escape = new QAction(this);
    escape->setShortcut(Qt::Key_Escape);
    connect(escape, &QAction::triggered, this, &QWidget::close);
    addAction(escape);
}

void Frm_Debug::addLine(const QString& line) {
    QScrollBar& bar = *text_->verticalScrollBar();
    const bool atEnd = bar.value() == bar.maximum();
    QTextCursor end(text_->document());
    end.movePosition(QTextCursor::End);
    end.insertText(line + u'\n');
    if (atEnd) bar.setValue(bar.maximum());
}

void Frm_Debug::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const Twips_Scale scale = scaleOf(*this);
    const double textWidth = scale.twipsX(width()) - besideText;
    const double textHeight = scale.twipsY(height()) - belowText;
    if (textWidth < 0 || textHeight < 0) return;
    placeAt(*text_, {textLeft, textTop, textWidth, textHeight});
}

void Frm_Debug::closeEvent(QCloseEvent* event) {
    event->ignore();
    hide();
}

} // namespace zorvane::ui
