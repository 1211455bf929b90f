// SPDX-License-Identifier: MIT
#include "ui/grid/flex_grid_model.h"

#include "ui/base/text.h"
#include "ui/grid/packed_colour.h"

#include <QBrush>

#include <algorithm>
#include <optional>

namespace zorvane::ui {

namespace {

QVariant brushOf(std::optional<std::int32_t> packed) {
    return packed ? QVariant(QBrush(colourFrom(*packed))) : QVariant();
}

} // namespace

Qt::Alignment qtAlignment(std::int32_t alignment) {
    switch (alignment) {
    case Align_Center_Top:
    case Align_Center_Center:
        return Qt::AlignHCenter | Qt::AlignVCenter;
    case Align_Right_Top:
        return Qt::AlignRight | Qt::AlignVCenter;
    default:
        return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

bool Flex_Grid_Model::sizesDiffer() const {
    return rows_ != std::max(0, store.Rows() - 1) || columns_ != store.Cols();
}

void Flex_Grid_Model::takeSizes() {
    beginResetModel();
    rows_ = std::max(0, store.Rows() - 1);
    columns_ = store.Cols();
    endResetModel();
}

void Flex_Grid_Model::takeCells(std::int32_t firstRow, std::int32_t firstCol, std::int32_t lastRow,
                                std::int32_t lastCol) {
    lastCol = std::min(lastCol, columns_ - 1);
    lastRow = std::min(lastRow, rows_);
    if (firstCol > lastCol) return;
    if (firstRow == 0) emit headerDataChanged(Qt::Horizontal, firstCol, lastCol);
    const int top = std::max(firstRow, 1) - 1;
    if (top <= lastRow - 1) emit dataChanged(index(top, firstCol), index(lastRow - 1, lastCol));
}

int Flex_Grid_Model::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int Flex_Grid_Model::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns_; }

bool Flex_Grid_Model::inStore(const QModelIndex& index) const {
    return index.isValid() && index.row() + 1 < store.Rows() && index.column() < store.Cols();
}

QVariant Flex_Grid_Model::data(const QModelIndex& index, int role) const {
    if (!inStore(index)) return {};
    const std::int32_t row = index.row() + 1;
    const std::int32_t col = index.column();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return fromCore(store.TextMatrix(row, col));
    case Qt::BackgroundRole:
        return brushOf(store.coloursOf(row, col).back);
    case Qt::ForegroundRole:
        return brushOf(store.coloursOf(row, col).fore);
    case Qt::TextAlignmentRole:
        return QVariant(qtAlignment(store.ColAlignment(col)));
    case Qt::AccessibleDescriptionRole:
        return describe ? fromCore(describe(row, col)) : QVariant();
    case Qt::ToolTipRole:
        return explain ? fromCore(explain(row, col)) : QVariant();
    case cornerRole:
        return corners ? QVariant(corners(row, col)) : QVariant();
    default:
        return {};
    }
}

QVariant Flex_Grid_Model::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= store.Cols() || store.Rows() == 0) return {};
    if (role == Qt::DisplayRole) return fromCore(store.TextMatrix(0, section));
    if (role == Qt::TextAlignmentRole) return QVariant(qtAlignment(store.FixedAlignment(section)));
    return {};
}

Qt::ItemFlags Flex_Grid_Model::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
}

} // namespace zorvane::ui
