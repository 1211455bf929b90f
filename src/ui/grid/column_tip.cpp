// SPDX-License-Identifier: MIT
#include "ui/grid/column_tip.h"

#include "ui/base/text.h"
#include "ui/base/twips_scale.h"
#include "ui/grid/flex_grid_view.h"
#include "values/twips.h"

#include <QApplication>
#include <QCursor>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace zorvane::ui {

namespace {

constexpr Twips_Rect designPlace{2700, 2550, 1665, 285};
constexpr double cursorOffset = 120; // twips
constexpr int areaMargin = 2;        // pixels that the watched area begins before the grid
constexpr double tipPoints = 8.25;

} // namespace

QString columnWidthText(std::int32_t twips) {
    constexpr auto inch = static_cast<std::int64_t>(twipsPerInch);
    const std::int64_t hundredths = (std::int64_t{twips} * 100 + inch / 2) / inch;
    return QStringLiteral("%1.%2 inch").arg(hundredths / 100).arg(hundredths % 100, 2, 10, QLatin1Char('0'));
}

Column_Tip::Column_Tip(Flex_Grid_View& grid, QWidget* form) : QFrame(form), grid_(grid) {
    giveName(*this, QStringLiteral("picTip"));
    setFrameShape(NoFrame);
    setAutoFillBackground(true);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette colours = QToolTip::palette();
    colours.setColor(QPalette::Window, colours.color(QPalette::ToolTipBase));
    colours.setColor(QPalette::WindowText, colours.color(QPalette::ToolTipText));
    setPalette(colours);
    QFont small = font();
    small.setPointSizeF(tipPoints);
    setFont(small);
    words_ = new QLabel(QStringLiteral("Width :"), this);
    giveName(*words_, QStringLiteral("Label1"));
    width_ = new QLabel(this);
    giveName(*width_, QStringLiteral("lblTip"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 0, 4, 0);
    row->addWidget(words_);
    row->addWidget(width_, 1);
    placeAt(*this, designPlace);
    hide();
}

void Column_Tip::start() {
    if (std::exchange(watching_, true)) return;
    const QPoint corner = grid_.mapToGlobal(QPoint(0, 0)) - QPoint(areaMargin, areaMargin);
    area_ = QRect(corner, grid_.size());
    if (cursor_.isNull()) cursor_ = QCursor::pos();
    qApp->installEventFilter(this);
}

void Column_Tip::stop() {
    if (!std::exchange(watching_, false)) return;
    qApp->removeEventFilter(this);
    endDrag();
}

void Column_Tip::drag(std::int32_t twips) {
    if (!watching_ || !area_.contains(cursor_)) return;
    dragging_ = true;
    width_->setText(columnWidthText(twips));
    placeAtCursor();
}

void Column_Tip::endDrag() {
    dragging_ = false;
    hide();
}

bool Column_Tip::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseMove:
        // The window under the mouse gets each move first, the widget gets it again.
        if (watched->isWidgetType()) mouseMoved(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) endDrag();
        break;
    default:
        break;
    }
    return QFrame::eventFilter(watched, event);
}

void Column_Tip::mouseMoved(QPoint screen) {
    cursor_ = screen;
    if (!area_.contains(screen))
        stop();
    else if (dragging_)
        placeAtCursor();
}

/// Right of the mouse and below it, but inside the form.
void Column_Tip::placeAtCursor() {
    const Twips_Scale scale = scaleOf(*this);
    const QPoint offset(scale.pixelsX(cursorOffset), scale.pixelsY(cursorOffset));
    const QPoint wanted = parentWidget()->mapFromGlobal(cursor_) + offset;
    const QSize room = parentWidget()->size() - size();
    move(std::clamp(wanted.x(), 0, std::max(0, room.width())),
         std::clamp(wanted.y(), 0, std::max(0, room.height())));
    raise();
    show();
}

} // namespace zorvane::ui
