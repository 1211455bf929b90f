// SPDX-License-Identifier: MIT
#include "ui/grid/flex_grid_view.h"

#include <QHeaderView>
#include <QScrollBar>

#include <algorithm>

namespace zorvane::ui {

void Flex_Grid_View::setCoveredBelow(int pixels) {
    if (pixels == coveredBelow_) return;
    const QRect current = visualRect(currentIndex());
    const bool wasSeen = currentIndex().isValid() && current.top() < freeHeight();
    coveredBelow_ = pixels;
    updateGeometries();
    if (wasSeen && current.bottom() >= freeHeight()) scrollTo(currentIndex());
}

/// Pixels of the cells' room that nothing floats over.
int Flex_Grid_View::freeHeight() const { return std::max(0, viewport()->height() - coveredBelow_); }

/// The first row on top with which that one is free as a whole.
int Flex_Grid_View::topRowFor(int lastRow) const {
    const int room = freeHeight();
    int top = lastRow;
    int height = rowHeight(lastRow);
    while (top > 0 && height + rowHeight(top - 1) <= room)
        height += rowHeight(--top);
    return top;
}

bool Flex_Grid_View::scrollsFurther() const {
    return coveredBelow_ > 0 && model_.rowCount() > 0 && verticalHeader()->length() > freeHeight();
}

/// Qt lets the last row come to the lower edge of the cells. With something over that edge the rows go on
/// until the last one is free; the scroll bar stays then, so that its coming and going doesn't move the
/// cells.
void Flex_Grid_View::updateGeometries() {
    const int before = verticalScrollBar()->value();
    setVerticalScrollBarPolicy(scrollsFurther() ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAsNeeded);
    QTableView::updateGeometries();
    if (!scrollsFurther()) return;
    QScrollBar& bar = *verticalScrollBar();
    bar.setMaximum(std::max(bar.maximum(), topRowFor(model_.rowCount() - 1)));
    bar.setValue(before);
    alignTopRow();
}

void Flex_Grid_View::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    alignTopRow();
}

/// At the end of its way the scroll bar asks Qt for the last row at the lower edge, whatever its value says.
void Flex_Grid_View::alignTopRow() {
    if (!scrollsFurther()) return;
    const int before = verticalHeader()->offset();
    verticalHeader()->setOffsetToSectionPosition(verticalScrollBar()->value());
    if (verticalHeader()->offset() == before) return;
    updateEditorGeometries();
    viewport()->update();
}

void Flex_Grid_View::scrollTo(const QModelIndex& index, ScrollHint hint) {
    QTableView::scrollTo(index, hint);
    if (coveredBelow_ == 0 || !index.isValid() || visualRect(index).bottom() < freeHeight()) return;
    verticalScrollBar()->setValue(std::max(verticalScrollBar()->value(), topRowFor(index.row())));
}

} // namespace zorvane::ui
