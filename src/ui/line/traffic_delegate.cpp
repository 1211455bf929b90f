// SPDX-License-Identifier: MIT
#include "ui/line/traffic_delegate.h"

#include <QPainter>
#include <QStyle>
#include <QWidget>

namespace zorvane::ui {

namespace {

QPalette::ColorGroup groupOf(QStyle::State state) {
    if (!state.testFlag(QStyle::State_Enabled)) return QPalette::Disabled;
    return state.testFlag(QStyle::State_Active) ? QPalette::Normal : QPalette::Inactive;
}

void paintFocus(QPainter& painter, const QStyleOptionViewItem& option) {
    QStyleOptionFocusRect frame;
    frame.QStyleOption::operator=(option);
    frame.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
    frame.backgroundColor = option.palette.color(groupOf(option.state), QPalette::Window);
    option.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, option.widget);
}

} // namespace

int Traffic_Delegate::widthOf(QChar character, const QFontMetrics& metrics) const {
    if (character.unicode() >= widths_.size()) return metrics.horizontalAdvance(character);
    int& width = widths_[character.unicode()];
    if (width == 0) width = metrics.horizontalAdvance(character);
    return width;
}

QString Traffic_Delegate::fitting(const QString& text, int width, const QFontMetrics& metrics) const {
    if (metrics_ != metrics) {
        metrics_ = metrics;
        widths_.fill(0);
    }
    const QChar dots(0x2026);
    const int room = width - widthOf(dots, metrics);
    qsizetype beforeDots = 0;
    int taken = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        taken += widthOf(text[i], metrics);
        if (taken <= room) beforeDots = i + 1;
        if (taken > width) return text.left(beforeDots) + dots;
    }
    return text;
}

void Traffic_Delegate::paint(QPainter* painter, const QStyleOptionViewItem& given,
                             const QModelIndex& index) const {
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const QStyle& style = *option.widget->style();
    style.drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 1;
    const QRect place = option.rect.adjusted(margin, 0, -margin, 0);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    painter->setFont(option.font);
    painter->setPen(
        option.palette.color(groupOf(option.state), selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(place, static_cast<int>(option.displayAlignment) | Qt::TextSingleLine,
                      fitting(option.text, place.width(), option.fontMetrics));
    if (option.state.testFlag(QStyle::State_HasFocus)) paintFocus(*painter, option);
}

} // namespace zorvane::ui
