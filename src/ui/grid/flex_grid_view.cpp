// SPDX-License-Identifier: MIT
#include "ui/grid/flex_grid_view.h"

#include "ui/grid/flex_grid_delegate.h"

#include <QHeaderView>
#include <QPaintEvent>

#include <algorithm>
#include <limits>
#include <utility>

namespace zorvane::ui {

Flex_Grid_View::Flex_Grid_View(QWidget* parent)
    : QTableView(parent), model_(nullptr),
      delegate_(new Flex_Grid_Delegate(this, [this](QWidget* editorParent, const QModelIndex& index) {
          return makeEditor(editorParent, index);
      })) {
    setModel(&model_);
    setItemDelegate(delegate_);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ContiguousSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setMinimumSectionSize(0);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    viewport()->setMouseTracking(true);
    horizontalHeader()->viewport()->setMouseTracking(true);
    horizontalHeader()->viewport()->installEventFilter(this);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int, int pixels) { sectionDragged(column, pixels); });
}

Flex_Grid_View::~Flex_Grid_View() {
    editor_.clear();
    setModel(nullptr);
}

void Flex_Grid_View::setSelectsRows(bool rows) {
    selectsRows_ = rows;
    delegate_->setRowsSelected(rows);
    setSelectionBehavior(rows ? SelectRows : SelectItems);
    setSelectionMode(rows ? SingleSelection : ContiguousSelection);
    setTabKeyNavigation(!rows);
}

void Flex_Grid_View::cellChanged(std::int32_t row, std::int32_t col) {
    if (!store().Visible()) return; // all cells count as changed when it is shown again
    if (!changed_) {
        changed_ = Cell_Range{row, col, row, col};
        scheduleFlush();
        return;
    }
    changed_->firstRow = std::min(changed_->firstRow, row);
    changed_->firstCol = std::min(changed_->firstCol, col);
    changed_->lastRow = std::max(changed_->lastRow, row);
    changed_->lastCol = std::max(changed_->lastCol, col);
}

void Flex_Grid_View::columnsChanged() {
    columnsChanged_ = true;
    scheduleFlush();
}

void Flex_Grid_View::rowHeightsChanged() {
    rowHeightsChanged_ = true;
    scheduleFlush();
}

void Flex_Grid_View::currentChangedByOwner() {
    currentChanged_ = true;
    scheduleFlush();
}

void Flex_Grid_View::visibleChanged() {
    visibleChanged_ = true;
    constexpr std::int32_t all = std::numeric_limits<std::int32_t>::max();
    changed_ = Cell_Range{0, 0, all, all};
    if (store().Visible()) {
        scheduleFlush();
        flush();
    } else {
        setUpdatesEnabled(false);
        scheduleFlush();
    }
}

void Flex_Grid_View::scheduleFlush() {
    if (flushPending_) return;
    flushPending_ = true;
    QMetaObject::invokeMethod(
        this, [this] { flush(); }, Qt::QueuedConnection);
}

void Flex_Grid_View::flush() {
    if (!flushPending_ || flushing_) return;
    flushPending_ = false;
    flushing_ = true;
    const bool scrolls = hasAutoScroll();
    setAutoScroll(false);
    flushRowHeights();
    flushSizes();
    flushColumns();
    flushCells();
    flushCurrent();
    setAutoScroll(scrolls);
    flushing_ = false;
    if (!std::exchange(visibleChanged_, false)) return;
    setUpdatesEnabled(store().Visible());
    if (isHidden() == store().Visible()) setVisible(store().Visible());
}

/// Rows are as high as their row 1 almost always; then the header takes the height once for all of them. A
/// section that is told its height alone keeps it, so only rows that differ are.
void Flex_Grid_View::flushRowHeights() {
    if (!rowHeightsChanged_ && !model_.sizesDiffer()) return;
    if (store().Rows() == 0) return;
    const Twips_Scale scale = scaleOf(*this);
    horizontalHeader()->setFixedHeight(scale.pixelsY(store().RowHeight(0)));
    if (store().Rows() > 1)
        verticalHeader()->setDefaultSectionSize(std::max(1, scale.pixelsY(store().RowHeight(1))));
}

void Flex_Grid_View::flushSizes() {
    if (model_.sizesDiffer()) {
        abandonEdit();
        model_.takeSizes();
        columnsChanged_ = rowHeightsChanged_ = currentChanged_ = true;
    }
    if (!std::exchange(rowHeightsChanged_, false)) return;
    const Twips_Scale scale = scaleOf(*this);
    const int usual = verticalHeader()->defaultSectionSize();
    for (std::int32_t row = 1; row < store().Rows(); ++row) {
        const int height = scale.pixelsY(store().RowHeight(row));
        if (height != usual || verticalHeader()->sectionSize(row - 1) != usual)
            verticalHeader()->resizeSection(row - 1, height);
    }
}

void Flex_Grid_View::flushColumns() {
    if (!std::exchange(columnsChanged_, false)) return;
    const Twips_Scale scale = scaleOf(*this);
    for (int col = 0; col < model_.columnCount(); ++col)
        horizontalHeader()->resizeSection(col, std::max(0, scale.pixelsX(store().ColWidth(col))));
    widenLast();
    model_.takeCells(0, 0, model_.rowCount(), model_.columnCount() - 1);
}

/// Its own width again, or more where there is room.
void Flex_Grid_View::widenLast() {
    int last = std::min(model_.columnCount(), store().Cols()) - 1;
    while (last >= 0 && store().ColWidth(last) <= 0)
        --last;
    if (!fillsRoom_ || last < 0) return;
    const int own = scaleOf(*this).pixelsX(store().ColWidth(last));
    const int others = horizontalHeader()->length() - horizontalHeader()->sectionSize(last);
    const bool flushing = std::exchange(flushing_, true); // no drag of the user's
    horizontalHeader()->resizeSection(last, std::max(own, viewport()->width() - others));
    flushing_ = flushing;
}

void Flex_Grid_View::setFillsRoom(bool on) {
    fillsRoom_ = on;
    columnsChanged();
}

void Flex_Grid_View::setDarkGrounds(bool on) {
    delegate_->setDarkGrounds(on);
    viewport()->update();
}

void Flex_Grid_View::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    widenLast();
}

void Flex_Grid_View::flushCells() {
    if (!changed_) return;
    const Cell_Range range = *std::exchange(changed_, std::nullopt);
    model_.takeCells(range.firstRow, range.firstCol, range.lastRow, range.lastCol);
}

/// An edit in progress keeps its cell; the current cell is taken over when it ends.
void Flex_Grid_View::flushCurrent() {
    if (!currentChanged_ || isEditing()) return;
    currentChanged_ = false;
    const std::int32_t row = store().Row();
    const std::int32_t col = store().Col();
    if (row >= 1 && col >= 0) {
        lastRow_ = row;
        lastCol_ = col;
        selectInView(row, col);
    } else {
        selectionModel()->clear();
    }
}

void Flex_Grid_View::selectInView(std::int32_t row, std::int32_t col) {
    const QModelIndex current = model_.index(row - 1, col);
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    if (selectsRows_) {
        selectionModel()->select(current, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        return;
    }
    const int farRow = std::max(store().RowSel(), 1) - 1;
    const int farCol = std::max(store().ColSel(), 0);
    const QModelIndex first = model_.index(std::min(row - 1, farRow), std::min(col, farCol));
    const QModelIndex last = model_.index(std::max(row - 1, farRow), std::max(col, farCol));
    selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
}

void Flex_Grid_View::paintEvent(QPaintEvent* event) {
    flush();
    QTableView::paintEvent(event);
}

void Flex_Grid_View::sectionDragged(int column, int pixels) {
    if (flushing_ || column >= store().Cols()) return;
    store().setColWidth(column, qRound(scaleOf(*this).twipsX(pixels)));
    resizedColumn_ = column;
    if (events.UserResizing) events.UserResizing(column, store().ColWidth(column));
}

void Flex_Grid_View::tellUserResize() {
    const int column = std::exchange(resizedColumn_, -1);
    if (column >= 0) widenLast();
    if (column >= 0 && events.AfterUserResize) events.AfterUserResize(-1, column);
}

} // namespace zorvane::ui
