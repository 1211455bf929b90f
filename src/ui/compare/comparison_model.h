// SPDX-License-Identifier: MIT
#pragma once

#include "compare/row_list.h"

#include <QAbstractTableModel>

#include <functional>

namespace zorvane::ui {

/// Of two sides in this order; `Sign` is that of the right side beside whatever is to the left of it.
enum class Comparison_Column { Page, Setting, Left, Right, Sign, Register, Left_Sign, Document };

/// The listed rows of a comparison as a table of Qt. The first column carries the tick. Of three sides the
/// document stands between the signs of the two others, so there are two columns more.
class Comparison_Model final : public QAbstractTableModel {
  public:
    [[nodiscard]] const compare::Row_List& rows() const { return rows_; }
    void setRows(compare::Row_List rows, const compare::Filter& filter, bool all);
    void list(const compare::Filter& filter, bool all);
    void tickDifferences();
    void tickNothing();
    void setTicked(int row, bool on);

    std::function<void()> ticksChanged; ///< may be empty

    /// What a section of the table shows, from left to right.
    [[nodiscard]] Comparison_Column column(int section) const;

    /// All that a row shows: "Page: Outputs; Setting: 2, Value; Left: 1:30; Right: 2:00; Sign: = equal".
    [[nodiscard]] QString rowText(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    template <class Change> void reset(Change&& change);
    template <class Change> void tick(Change&& change);
    void tellTicks() const;

    compare::Row_List rows_;
};

} // namespace zorvane::ui
