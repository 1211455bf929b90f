// SPDX-License-Identifier: MIT
#include "ui/grid/flex_grid.h"

#include <QHeaderView>

#include <algorithm>

namespace zorvane::ui {

void Flex_Grid::setRows(std::int32_t rows) {
    if (rows == store_.Rows()) return;
    store_.setRows(rows);
    view_.rowHeightsChanged();
    view_.currentChangedByOwner();
}

void Flex_Grid::setCols(std::int32_t cols) {
    if (cols == store_.Cols()) return;
    store_.setCols(cols);
    view_.columnsChanged();
    view_.currentChangedByOwner();
}

void Flex_Grid::setRow(std::int32_t row) {
    store_.setRow(row);
    view_.currentChangedByOwner();
}

void Flex_Grid::setCol(std::int32_t col) {
    store_.setCol(col);
    view_.currentChangedByOwner();
}

void Flex_Grid::setRowSel(std::int32_t row) {
    store_.setRowSel(row);
    view_.currentChangedByOwner();
}

void Flex_Grid::setColSel(std::int32_t col) {
    store_.setColSel(col);
    view_.currentChangedByOwner();
}

std::int32_t Flex_Grid::TopRow() const {
    view_.flush();
    return std::max(0, view_.rowAt(0)) + 1;
}

void Flex_Grid::currentCellChanged() {
    if (store_.Row() >= 0 && store_.Col() >= 0) view_.cellChanged(store_.Row(), store_.Col());
}

void Flex_Grid::setText(const std::string& text) {
    store_.setText(text);
    currentCellChanged();
}

void Flex_Grid::setTextMatrix(std::int32_t row, std::int32_t col, const std::string& text) {
    store_.setTextMatrix(row, col, text);
    view_.cellChanged(row, col);
}

void Flex_Grid::setCellBackColor(std::int32_t colour) {
    store_.setCellBackColor(colour);
    currentCellChanged();
}

void Flex_Grid::setCellForeColor(std::int32_t colour) {
    store_.setCellForeColor(colour);
    currentCellChanged();
}

void Flex_Grid::setColWidth(std::int32_t col, std::int32_t twips) {
    store_.setColWidth(col, twips);
    view_.columnsChanged();
}

void Flex_Grid::setRowHeight(std::int32_t row, std::int32_t twips) {
    if (store_.RowHeight(row) == twips) return;
    store_.setRowHeight(row, twips);
    view_.rowHeightsChanged();
}

void Flex_Grid::setColAlignment(std::int32_t col, std::int32_t alignment) {
    store_.setColAlignment(col, alignment);
    view_.columnsChanged();
}

void Flex_Grid::setFixedAlignment(std::int32_t col, std::int32_t alignment) {
    store_.setFixedAlignment(col, alignment);
    view_.columnsChanged();
}

void Flex_Grid::setFontSize(double points) {
    store_.setFontSize(points);
    QFont font = view_.font();
    font.setPointSizeF(points);
    view_.setFont(font);
    view_.horizontalHeader()->setFont(font);
}

void Flex_Grid::setVisible(bool visible) {
    store_.setVisible(visible);
    view_.visibleChanged();
}

void Flex_Grid::setTabStop(bool on) {
    store_.setTabStop(on);
    view_.setFocusPolicy(on ? Qt::StrongFocus : Qt::ClickFocus);
}

void Flex_Grid::SetFocus() {
    store_.SetFocus();
    if (!view_.isEditing()) view_.setFocus(Qt::OtherFocusReason);
}

void Flex_Grid::Refresh() {
    store_.Refresh();
    view_.flush();
    view_.viewport()->update();
}

} // namespace zorvane::ui
