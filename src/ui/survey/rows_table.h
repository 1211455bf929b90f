// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <QTableView>

#include <vector>

namespace zorvane::ui {

/// Rows of texts under headings.
class Rows_Model final : public QAbstractTableModel {
  public:
    explicit Rows_Model(QStringList headings) : headings_(std::move(headings)) {}

    /// A row that is in both keeps its place in the table.
    void setRows(std::vector<QStringList> rows);
    [[nodiscard]] const std::vector<QStringList>& rows() const { return rows_; }
    [[nodiscard]] const QStringList& headings() const { return headings_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QStringList headings_;
    std::vector<QStringList> rows_;
};

/// A table of them for people: rows are selected, Ctrl+C copies those selected, or all, with tabs.
class Rows_Table final : public QTableView {
  public:
    /// `widths` are in characters; the last column takes what is left.
    Rows_Table(const QString& name, const QString& words, const QStringList& headings,
               const std::vector<int>& widths);

    [[nodiscard]] Rows_Model& rows() { return model_; }
    /// The row that the keyboard is in; -1 for none.
    [[nodiscard]] int chosen() const { return currentIndex().row(); }
    [[nodiscard]] QString text() const;

  private:
    void copy() const;

    Rows_Model model_;
};

} // namespace zorvane::ui
