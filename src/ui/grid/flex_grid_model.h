// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/memory_grid.h"

#include <QAbstractTableModel>

#include <functional>

namespace zorvane::ui {

/// What a cell carries in its corners beside its text; a sum of these.
enum Cell_Corner : int {
    Corner_Changed = 1, ///< a triangle in the upper right one: the value isn't the file's
    Corner_Differs = 2, ///< an empty one in the lower corner that the text leaves free: another side differs
};
/// The role under which a view gets it.
inline constexpr int cornerRole = Qt::UserRole + 1;

/// The cells of a grid as Qt's views see them. The cells themselves are a `Memory_Grid`; nothing is made for
/// a single cell. Grid row 0 is the horizontal header, so row 0 of the model is grid row 1.
///
/// Whoever writes into `store` tells the model afterwards, once for many changes: a view learns of new sizes
/// with `takeSizes` and of new cells with `takeCells`.
class Flex_Grid_Model final : public QAbstractTableModel {
  public:
    /// What a screen reader is told of a cell beside its text, in plain words; rows and columns of the grid.
    using Describe_Cell = std::function<std::string(std::int32_t row, std::int32_t col)>;

    explicit Flex_Grid_Model(QObject* parent) : QAbstractTableModel(parent) {}

    Memory_Grid store;
    Describe_Cell describe;
    /// What the tool tip of a cell says; empty for none.
    Describe_Cell explain;
    /// What is in the corners of a cell.
    std::function<int(std::int32_t row, std::int32_t col)> corners;

    [[nodiscard]] bool sizesDiffer() const;
    /// Takes the sizes of the store over; views start again.
    void takeSizes();
    /// Grid rows and columns, from and to included, of cells that changed. Headings are told apart.
    void takeCells(std::int32_t firstRow, std::int32_t firstCol, std::int32_t lastRow, std::int32_t lastCol);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    [[nodiscard]] bool inStore(const QModelIndex& index) const;

    int rows_ = 0;
    int columns_ = 0;
};

/// How Qt names an alignment of the grid. Cells are one line high, so top and centre look the same.
[[nodiscard]] Qt::Alignment qtAlignment(std::int32_t alignment);

} // namespace zorvane::ui
