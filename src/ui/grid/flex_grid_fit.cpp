// SPDX-License-Identifier: MIT
// The whole text of what is cut, and columns as wide as their texts.

#include "ui/base/text.h"
#include "ui/grid/flex_grid_delegate.h"
#include "ui/grid/flex_grid_view.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QStyle>
#include <QToolTip>

#include <algorithm>
#include <limits>

namespace zorvane::ui {

namespace {

/// Widths are kept in 16 bits.
constexpr double widestTwips = std::numeric_limits<std::int16_t>::max();

} // namespace

/// Qt's own fit counts a heading as bold, and rows that are far away not at all.
void Flex_Grid_View::setFitsColumns() {
    disconnect(horizontalHeader(), &QHeaderView::sectionHandleDoubleClicked, this, nullptr);
    connect(horizontalHeader(), &QHeaderView::sectionHandleDoubleClicked, this,
            [this](int column) { fitColumn(column); });
}

int Flex_Grid_View::headingWidth(int column) const {
    const QHeaderView& header = *horizontalHeader();
    const int margin = header.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &header);
    const QString text = model_.headerData(column, Qt::Horizontal).toString();
    return header.fontMetrics().horizontalAdvance(text) + 2 * margin;
}

void Flex_Grid_View::tellHeading(const QHelpEvent& event) const {
    const int column = horizontalHeader()->logicalIndexAt(event.pos());
    const bool cut = column >= 0 && headingWidth(column) > columnWidth(column);
    const QString text = cut ? model_.headerData(column, Qt::Horizontal).toString() : QString();
    QToolTip::showText(event.globalPos(), plainTip(text), horizontalHeader()->viewport());
}

/// A column without a width has its border where the one before it has.
void Flex_Grid_View::fitColumn(int column) {
    while (column > 0 && columnWidth(column) == 0)
        --column;
    if (column < 0 || column >= model_.columnCount() || columnWidth(column) == 0) return;
    int width = headingWidth(column);
    for (int row = 0; row < model_.rowCount(); ++row)
        width = std::max(
            width, Flex_Grid_Delegate::widthFor(model_.index(row, column).data().toString(), fontMetrics()));
    const int gridLine = showGrid() ? 1 : 0;
    const int widest = static_cast<int>(widestTwips / scaleOf(*this).perPixelX);
    horizontalHeader()->resizeSection(column, std::min(width + gridLine, widest));
}

} // namespace zorvane::ui
