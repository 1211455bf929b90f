// SPDX-License-Identifier: MIT
#include "ui/grid/flex_grid_delegate.h"

#include "ui/base/text.h"
#include "ui/grid/cell_colours.h"
#include "ui/grid/flex_grid_model.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace zorvane::ui {

namespace {

constexpr int textMargin = 3;
constexpr double tint = 0.35; // of the selection's colour over a cell's own

QColor mixed(const QColor& base, const QColor& over, double share) {
    const auto channel = [&](int below, int above) {
        return static_cast<int>(below * (1 - share) + above * share + 0.5);
    };
    return {channel(base.red(), over.red()), channel(base.green(), over.green()),
            channel(base.blue(), over.blue())};
}

QPalette::ColorGroup groupOf(const QStyleOptionViewItem& option) {
    if (!option.state.testFlag(QStyle::State_Enabled)) return QPalette::Disabled;
    return option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

/// `selected` is the look of a selection on the desktop's own ground.
Cell_Colours lookOf(const QStyleOptionViewItem& option, const QModelIndex& index, bool selected,
                    bool darkGrounds) {
    const QPalette::ColorGroup group = groupOf(option);
    const QVariant back = index.data(Qt::BackgroundRole);
    const QVariant fore = index.data(Qt::ForegroundRole);
    const QColor highlight = option.palette.color(group, QPalette::Highlight);
    const QColor base = option.palette.color(group, QPalette::Base);
    Cell_Colours look{base, option.palette.color(group, QPalette::Text)};
    if (selected && !back.isValid())
        return {highlight, option.palette.color(group, QPalette::HighlightedText)};
    if (back.isValid()) look = {back.value<QBrush>().color(), QColor(Qt::black)};
    if (fore.isValid()) look.fore = fore.value<QBrush>().color();
    if (darkGrounds && back.isValid()) look = fittedTo(base, look);
    if (selected) look.back = mixed(look.back, highlight, tint);
    return look;
}

void drawCellText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) {
    const QString text = index.data(Qt::DisplayRole).toString();
    if (text.isEmpty()) return;
    const QRect place = option.rect.adjusted(textMargin, 0, -textMargin, 0);
    const int flags = index.data(Qt::TextAlignmentRole).toInt() | Qt::TextSingleLine;
    painter->setFont(option.font);
    const bool fits = option.fontMetrics.horizontalAdvance(text) <= place.width();
    painter->drawText(place, flags,
                      fits ? text : option.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
}

/// A triangle in the colour of the text, so that it is seen on any ground.
void drawChanged(QPainter* painter, const QRect& place, const Cell_Colours& look, int side) {
    const QPoint corner(place.right() + 1, place.top());
    painter->setBrush(look.fore);
    painter->setPen(Qt::NoPen);
    painter->drawPolygon(QPolygon({corner, corner - QPoint(side, 0), corner + QPoint(0, side)}));
}

/// Another corner and no filling tell it from a change, not a colour. The text stays readable.
void drawDiffers(QPainter* painter, const QRect& place, const Cell_Colours& look, int side, bool left) {
    const QPoint corner = left ? place.bottomLeft() : place.bottomRight();
    painter->setBrush(look.back);
    painter->setPen(QPen(look.fore, 1));
    painter->drawPolygon(
        QPolygon({corner, corner + QPoint(left ? side : -side, 0), corner - QPoint(0, side)}));
}

void drawCorners(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                 const Cell_Colours& look) {
    const int corners = index.data(cornerRole).toInt();
    const int side = std::max(5, option.rect.height() * 2 / 5);
    const bool rightText = (index.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight) != 0;
    if ((corners & Corner_Changed) != 0) drawChanged(painter, option.rect, look, side);
    if ((corners & Corner_Differs) != 0) drawDiffers(painter, option.rect, look, side, rightText);
}

void drawCurrentBorder(QPainter* painter, const QStyleOptionViewItem& option) {
    const QPalette::ColorGroup group = groupOf(option);
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    QPen pen(option.palette.color(group, focused ? QPalette::Highlight : QPalette::Mid), 2);
    pen.setJoinStyle(Qt::MiterJoin);
    painter->setPen(pen);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
}

bool isCurrent(const QStyleOptionViewItem& option, const QModelIndex& index) {
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    return view != nullptr && view->currentIndex() == index;
}

} // namespace

void Flex_Grid_Delegate::paint(QPainter* painter, const QStyleOptionViewItem& given,
                               const QModelIndex& index) const {
    const bool current = !rows_ && isCurrent(given, index);
    const bool selected = given.state.testFlag(QStyle::State_Selected) && !current;
    const Cell_Colours look = lookOf(given, index, selected, darkGrounds_);
    painter->save();
    painter->fillRect(given.rect, look.back);
    painter->setPen(look.fore);
    drawCellText(painter, given, index);
    drawCorners(painter, given, index, look);
    if (current) drawCurrentBorder(painter, given);
    painter->restore();
}

int Flex_Grid_Delegate::widthFor(const QString& text, const QFontMetrics& metrics) {
    return metrics.horizontalAdvance(text) + 2 * textMargin;
}

bool Flex_Grid_Delegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                   const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data(Qt::DisplayRole).toString();
    QStringList lines;
    if (widthFor(text, view->fontMetrics()) > option.rect.width()) lines << text;
    if (const QString more = index.data(Qt::ToolTipRole).toString(); !more.isEmpty()) lines << more;
    QToolTip::showText(event->globalPos(), plainTip(lines.join(u'\n')), view->viewport(), option.rect);
    return true;
}

QWidget* Flex_Grid_Delegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                          const QModelIndex& index) const {
    return makeEditor_(parent, index);
}

void Flex_Grid_Delegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                              const QModelIndex&) const {
    editor->setGeometry(option.rect);
}

} // namespace zorvane::ui
